#pragma once

#include "registry/ktAnimationInfo.h"

#include <kt/ktModuleBase.h>
#include <kt/ktNodePtr.h>

#include <list>
#include <string>
#include <vector>

class QEvent;
class QListWidgetItem;
class ktAnimationGUIW;
class ktMessage;

/// The animation module: keeps a record for each animation of the scene, and lets the panel, host messages,
/// hotkeys and scripts drive them. There is one object, which initPlugin() makes; everything runs on the GUI
/// thread. Its operations live in a folder a subsystem; each group below names its folder.
class ktAnimation : public ktModuleBase
{
    Q_OBJECT

public:
    /// The one module object; set first thing in construction, never reset.
    static ktAnimation* _the;

    /// The panel; made in construction, owned by the host's main window.
    static ktAnimationGUIW* _main;

    /// Builds and docks the panel, connects it, registers the message and key callbacks. Does not look at the
    /// scene.
    ktAnimation();

    /// Takes the callbacks back. An exception from the host ends the process.
    ~ktAnimation() override;

    QWidget* getWidget() const override;
    void init() override;
    void receivedMessage(ktMessage& message) override;

    // registry/records.cpp: names are UTF-8, null is read as empty; a node without a time sensor core is
    // passed over.
    ktAnimationInfo* findAnimation(ktNodePtr node);
    ktAnimationInfo* findAnimation(const char* name);
    void insertAnimation(ktNodePtr node);
    void insertAnimation(const char* name);

    /// Removes by the node's name, whatever its core. `refresh` rebuilds the panel's list, found or not.
    void removeAnimation(ktNodePtr node, bool refresh);
    void removeAnimation(const char* name, bool refresh);
    void clearAnimations();

    // registry/sceneScan.cpp
    /// Brings the registry in line with the time sensors of the scene and shows it; nothing is selected
    /// afterwards.
    void refreshAnimations();

    // registry/playback.cpp: drive every time sensor of the name, which is the node's, byte for byte. No
    // record is needed.
    void startAnimation(const char* name);
    void stopAnimation(const char* name);
    void toggleAnimation(const char* name);
    void pauseAnimation(const char* name);
    void continueAnimation(const char* name);
    void resetAnimation(const char* name);

    // persistence/settings.cpp
    /// Writes comments and hotkeys into the project's attribute "Animations".
    void animationSave(ktMessage& project);

    /// Replaces the registry by what the project's attribute "Animations" says; nothing changes where it says
    /// nothing.
    void animationLoad(ktMessage& project);

    // module/messageDispatch.cpp: the attribute "animation-name" of the message names the animation.
    static void animStartCB(ktMessage& message);
    static void animStopCB(ktMessage& message);
    static void animToggleCB(ktMessage& message);
    static void animPauseCB(ktMessage& message);
    static void animContinueCB(ktMessage& message);
    static void animResetCB(ktMessage& message);

    // module/hotkeyTrigger.cpp
    /// Fires every hotkey that equals the Qt key code and modifiers; accepts the event (null: none) where one
    /// did.
    static void pressedKey(int key, int, int modifiers, QEvent* event);

    // python/pyFunctions.cpp: what scripts call; there must be a module object.
    /// The names of the records in registry order, as Latin-1.
    static std::vector<std::string> pyGetAnimations();
    static void pyStartAnimation(const char* name);
    static void pyStopAnimation(const char* name);
    static void pyPauseAnimation(const char* name);
    static void pyContinueAnimation(const char* name);
    static void pyResetAnimation(const char* name);
    static void pyToggleAnimation(const char* name);

public slots:
    // panel/animationList.cpp, panel/properties.cpp; the order is the meta-object's.
    void animationSelected();
    void animationDelete();
    void animationRenamed(QListWidgetItem* item, int column, const QString& text);
    void startKeyChange(const QString&);
    void stopKeyChange(const QString&);
    void commentChange(const QString&);
    void animationDisplayList();
    void animationDisplayProperties();
    void changedCycleInterval(double value);
    void changedFraction(double value);

protected:
    std::list<ktAnimationInfo> _animations; ///< The registry, in insertion order; records never move.
    ktAnimationInfo* _current = nullptr;    ///< The record in the property frames, or null; not owned.

private:
    using Record = std::list<ktAnimationInfo>::iterator;

    Record findRecord(const QString& name);

    /// The record of this name, given as UTF-8, is destroyed if there is one: only the first.
    void removeRecord(const char* name);

    /// A fresh record of this name at the end of the registry.
    ktAnimationInfo& appendRecord(const QString& name);

    /// A row at the end of the panel's list; no other row changes.
    void addAnimationRow(const ktAnimationInfo& animation);

    void dockPanel();
    void connectPanel();
    void loadOrSaveSettings();
};
