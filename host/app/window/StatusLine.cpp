#include "host/app/window/StatusLine.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>

namespace kthost
{
namespace
{

constexpr int lineMargin = 4;
constexpr int progressWidth = 160;

/// Where the steps of an opening begin on the progress bar, in percent: about what they take with large
/// scenes. A step that has begun counts: an empty bar looks stuck.
constexpr int readingBegins = 2;
constexpr int buildingBegins = 65;
constexpr int announcingBegins = 90;

int beginOf(OpenStep step)
{
    switch (step) {
    case OpenStep::Reading:
        return readingBegins;
    case OpenStep::Building:
        return buildingBegins;
    default:
        return announcingBegins;
    }
}

QString textOf(OpenStep step, const QString& file)
{
    const QString name = QFileInfo(file).fileName();
    switch (step) {
    case OpenStep::Reading:
        return StatusLine::tr("Reading %1...").arg(name);
    case OpenStep::Building:
        return StatusLine::tr("Building the scene of %1...").arg(name);
    default:
        return StatusLine::tr("Showing %1...").arg(name);
    }
}

QString textOf(Session& session)
{
    if (session.file().isEmpty())
        return StatusLine::tr("No scene is open. Drop a VRML97 file here, or press %1.")
            .arg(QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText));
    const std::size_t count = session.frames().sensors().size();
    const QString animations =
        count == 1 ? StatusLine::tr("1 animation") : StatusLine::tr("%1 animations").arg(count);
    return QFileInfo(session.file()).fileName() + QStringLiteral("   ") + animations;
}

} // namespace

StatusLine::StatusLine(QStatusBar* bar)
    : QObject(bar),
      _bar(bar),
      _scene(new QLabel(bar)),
      _warnings(new QToolButton(bar)),
      _time(new QLabel(bar)),
      _progress(new QProgressBar(bar))
{
    _scene->setTextFormat(Qt::PlainText);
    _scene->setContentsMargins(lineMargin, 0, lineMargin, 0);
    _scene->setMinimumWidth(1); // a long name is no reason for a wide window
    _warnings->setAutoRaise(true);
    _warnings->setIcon(bar->style()->standardIcon(QStyle::SP_MessageBoxWarning));
    _warnings->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    _warnings->setFocusPolicy(Qt::TabFocus);
    _warnings->setToolTip(tr("Show the log"));
    _warnings->hide();
    _time->setContentsMargins(lineMargin, 0, lineMargin, 0);
    _time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    _time->setMinimumWidth(_time->fontMetrics().horizontalAdvance(QStringLiteral("00000.0 s")) +
                           2 * lineMargin);
    _time->setToolTip(tr("Simulation time"));
    _time->setAccessibleName(tr("Simulation time"));
    _progress->setAccessibleName(tr("Opening"));
    _progress->setRange(0, 100);
    _progress->setTextVisible(false);
    _progress->setFixedSize(progressWidth, _scene->fontMetrics().height());
    _progress->hide();
    bar->addWidget(_scene, 1);
    bar->addPermanentWidget(_progress);
    bar->addPermanentWidget(_warnings);
    bar->addPermanentWidget(_time);
    connect(_warnings, &QToolButton::clicked, this, &StatusLine::warningsClicked);
}

void StatusLine::showScene(Session& session)
{
    _scene->setText(textOf(session));
    _scene->setToolTip(session.file());
    const std::size_t warnings = session.warnings();
    _warnings->setText(warnings == 1 ? tr("1 warning") : tr("%1 warnings").arg(warnings));
    _warnings->setVisible(warnings > 0);
}

void StatusLine::showTime(double seconds)
{
    _time->setText(tr("%1 s").arg(seconds, 0, 'f', 1));
}

void StatusLine::showOpening(OpenStep step, const QString& file)
{
    const bool isBusy = step != OpenStep::Ended;
    makeBusy(isBusy);
    if (!isBusy) {
        _bar->clearMessage();
        return;
    }
    _bar->showMessage(textOf(step, file));
    fillProgress(beginOf(step));
}

void StatusLine::showReading(double part)
{
    fillProgress(readingBegins + qRound((buildingBegins - readingBegins) * qBound(0.0, part, 1.0)));
}

void StatusLine::fillProgress(int percent)
{
    _progress->setValue(percent);
    _bar->repaint();
}

void StatusLine::makeBusy(bool isBusy)
{
    if (isBusy == _isBusy)
        return;
    _isBusy = isBusy;
    _progress->setVisible(isBusy);
    if (isBusy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace kthost
