#pragma once

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
class Model
{
public:
    struct Sensor
    {
        double time = 0.0;
        double startTime = 0.0;
        double cycleInterval = 1.0;
        float fraction = 0.0F;
        bool isActive = false;
        bool isStopped = false;
    };

    struct Node
    {
        std::string name;
        bool isSensor;
        Sensor sensor;
    };

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

    using Operation = void (Model::*)(const std::string& name);

    Model();

    // Playback: by name, in the scene.
    void start(const std::string& name);
    void stop(const std::string& name);
    void toggle(const std::string& name);
    void resume(const std::string& name);
    void reset(const std::string& name);

    // Messages.
    void clear();
    void scan();
    void load(const std::vector<std::string>& strings);
    std::vector<std::string> saved() const;

    void pressKey(int key, int modifiers);

    // The list. Rows are given by their numbers.
    void select(const std::set<int>& rows);
    void forSelected(Operation operation);
    void removeSelected();

    // The frames.
    void typeComment(const QString& text);
    void chooseStart();
    void chooseStop();
    void setCycleInterval(double value);
    void setFraction(double value);

    std::vector<Node> scene;
    double now = 0.0;
    QStringList rows;
    std::set<int> selected;
    Panel panel;

private:
    template <class Action>
    void forSensors(const std::string& name, Action action);
    Record* find(const QString& name);
    void removeFirst(const QString& name);
    void run(Sensor& sensor, double elapsed) const;
    void showList();
    void showProperties();
    static Hotkey hotkeyOf(const QString& text);

    std::list<Record> _records;
    Record* _current = nullptr;
};

} // namespace kt::test
