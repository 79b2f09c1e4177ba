#include "host/app/window/LogPanel.h"

#include <QScrollBar>
#include <QTextCursor>

namespace kthost
{
namespace
{

/// A colour of the level that is readable on the palette's base, dark or light.
QColor colourOf(ktLog::Level level, const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    switch (level) {
    case ktLog::Level::Warning:
        return isDark ? QColor(0xe5b567) : QColor(0x8a5a00);
    case ktLog::Level::Error:
        return isDark ? QColor(0xff8a80) : QColor(0xb3261e);
    default:
        return palette.color(QPalette::Text);
    }
}

} // namespace

LogPanel::LogPanel(const HostLog& log, QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setAccessibleName(tr("Log"));
    setPlaceholderText(tr("Nothing has been logged."));
    setFrameShape(QFrame::NoFrame);
    setMaximumBlockCount(static_cast<int>(HostLog::mostLines));
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (const HostLog::Line& line : log.lines())
        append(line);
    connect(&log, &HostLog::logged, this, &LogPanel::append);
}

void LogPanel::append(const HostLog::Line& line)
{
    QTextCharFormat format;
    format.setForeground(colourOf(line.level, palette()));
    const bool isAtEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock();
    cursor.insertText(line.text, format);
    if (isAtEnd)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

} // namespace kthost
