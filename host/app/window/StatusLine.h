#pragma once

#include "host/app/Session.h"

#include <QObject>

class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;

namespace kthost
{

/// What the window's status bar says: the scene, its animations and warnings, the simulation time, and while
/// a scene is being opened how far that is.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    /// Fills `bar`, which owns the line.
    explicit StatusLine(QStatusBar* bar);

    /// What is open now.
    void showScene(Session& session);

    void showTime(double seconds);

    /// Opening a scene keeps the event loop waiting, so this paints at once. What was said before comes back
    /// at the end.
    void showOpening(OpenStep step, const QString& file);

    /// The part of the file that is read, from 0 to 1; painted at once, too.
    void showReading(double part);

signals:
    /// The user asks which warnings there were.
    void warningsClicked();

private:
    void makeBusy(bool isBusy);
    void fillProgress(int percent);

    QStatusBar* _bar;
    QLabel* _scene;
    QToolButton* _warnings;
    QLabel* _time;
    QProgressBar* _progress;
    bool _isBusy = false;
};

} // namespace kthost
