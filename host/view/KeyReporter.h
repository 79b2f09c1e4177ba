#pragma once

#include <QObject>

#include <set>

class QKeyEvent;

namespace kthost
{

/// Installed as the event filter of the window that shows the scene: tells the plug-ins' key callbacks of
/// each key press (ktOSGWidget) before the viewer gets it. The viewer gets only what no callback has
/// accepted.
///
/// A key that is held down is one press: its repetitions are told to nobody. Those of an accepted press, and
/// its release, are kept from the viewer too, so that it never sees half a press.
class KeyReporter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool pressed(QKeyEvent& event);
    bool released(QKeyEvent& event);

    std::set<int> _accepted; ///< Keys held down whose press was accepted.
};

} // namespace kthost
