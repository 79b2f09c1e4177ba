#pragma once

#include <kt/Export.h>

#include <QObject>
#include <QPixmap>
#include <QString>

#include <functional>
#include <vector>

class QWidget;
class ktMessage;

/// The base of every plug-in module. A module is known to the host from its construction to its destruction.
/// All of it is called on the GUI thread.
class KT_EXPORT ktModuleBase : public QObject
{
    Q_OBJECT

public:
    /// `name` identifies the module, `title` is shown to users; null is read as empty. `messages` is the set
    /// of message ids (see ktMessageId) that receivedMessage() is to get. `pixmap` is copied; null for none.
    ktModuleBase(const char* name, const char* title, unsigned int messages, QPixmap* pixmap);
    ~ktModuleBase() override;

    /// The module's window, or null.
    virtual QWidget* getWidget() const;

    /// Called once, after the plug-in's initPlugin() returned.
    virtual void init();

    /// Called once a frame after the scene was brought up to date.
    virtual void update();

    /// Called at each turn of the frame loop before the time sensors are evaluated.
    virtual void loop();

    /// Called with each message whose id the module asked for.
    virtual void receivedMessage(ktMessage& message);

    const QString& moduleName() const { return _name; }
    const QString& moduleTitle() const { return _title; }
    const QPixmap& modulePixmap() const { return _pixmap; }

    /// True where every bit of `id` was asked for, and `id` is not 0.
    bool wantsMessage(unsigned int id) const { return id != 0 && (_messages & id) == id; }

    /// The living modules, in order of construction.
    static const std::vector<ktModuleBase*>& modules();

    /// Calls `action(module)` for each module that lives now and still does when its turn comes: modules may
    /// come and go meanwhile.
    template <class Action>
    static void forEach(Action&& action)
    {
        const std::vector<ktModuleBase*> present = modules();
        for (ktModuleBase* module : present) {
            if (isLiving(module))
                action(*module);
        }
    }

    /// For the host: each module for which `isGone` answers true is not known any more, though it may live
    /// on, such as those of a library that failed. It gets no call and no message.
    static void drop(const std::function<bool(ktModuleBase*)>& isGone);

private:
    static bool isLiving(const ktModuleBase* module);

    QString _name;
    QString _title;
    unsigned int _messages;
    QPixmap _pixmap;
};
