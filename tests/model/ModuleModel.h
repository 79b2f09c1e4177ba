#pragma once

#include "tests/model/SceneModel.h"

#include <QString>
#include <QStringList>

#include <list>
#include <set>
#include <string>
#include <vector>

namespace kt::test
{

/// What the module is to do, said once more in the plainest way, to be compared with what it does. It shares
/// nothing with the module but Qt's conversions of texts.
class ModuleModel
{
public:
    struct Hotkey
    {
        QString text;
        int key = -1;
        int modifiers = 0;
    };

    struct Record
    {
        QString name;
        QString comment;
        Hotkey start;
        Hotkey stop;
    };

    /// What a combo box offers, and what it shows.
    struct Box
    {
        QStringList items;
        QString shown;
        void show(const QString& text);
    };

    struct Panel
    {
        QString comment;
        Box startModifier, startKey, stopModifier, stopKey;
        double cycleInterval = 0.0;
        double fraction = 0.0;
        bool isEnabled = false; ///< The comment and the four boxes.
    };

    explicit ModuleModel(SceneModel& scene);

    // Messages.
    void clear();
    void scan();
    void load(const std::vector<std::string>& strings);
    std::vector<std::string> saved() const;

    /// Whether a hotkey was hit.
    bool pressKey(int key, int modifiers);

    /// What scripts get as the list of animations.
    std::vector<std::string> latin1Names() const;

    // The list. Rows are given by their numbers.
    void select(const std::set<int>& rows);
    void startSelected();
    void forSelected(SceneModel::Operation operation);
    void showSelectedNodes();
    void removeSelected();
    void renameRow(int row, const QString& text);

    // The frames.
    void typeComment(const QString& text);
    void chooseStart();
    void chooseStop();
    void setCycleInterval(double value);
    void setFraction(double value);

    QStringList rows;
    std::set<int> selected;
    Panel panel;
    std::string printed;

private:
    Record* find(const QString& name);
    void removeFirst(const QString& name);
    std::vector<std::string> selectedNames() const;
    void showList();
    void showProperties();
    static Hotkey hotkeyOf(const QString& text);

    SceneModel& _scene;
    std::list<Record> _records;
    Record* _current = nullptr;
};

} // namespace kt::test
