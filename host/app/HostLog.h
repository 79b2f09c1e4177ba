#pragma once

#include <kt/ktLog.h>

#include <QObject>
#include <QString>

#include <deque>

namespace kthost
{

/// Takes what is logged through ktLog for as long as it lives: warnings and errors go to the standard error
/// stream, and every line is kept for windows that show the log. There is one at a time. GUI thread.
class HostLog : public QObject
{
    Q_OBJECT

public:
    struct Line
    {
        ktLog::Level level;
        QString text;
    };

    /// Older lines than these many are forgotten.
    static constexpr std::size_t mostLines = 10000;

    HostLog();
    ~HostLog() override;

    const std::deque<Line>& lines() const { return _lines; }

signals:
    void logged(const kthost::HostLog::Line& line);

private:
    static void sink(ktLog::Level level, const char* text);

    std::deque<Line> _lines;
};

} // namespace kthost
