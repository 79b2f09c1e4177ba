#pragma once

#include "host/app/HostLog.h"

#include <QPlainTextEdit>

namespace kthost
{

/// Shows the host's log as it grows; warnings and errors stand out. Its text can be selected and copied.
class LogPanel : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// `log` must outlive the panel.
    explicit LogPanel(const HostLog& log, QWidget* parent = nullptr);

private:
    void append(const HostLog::Line& line);
};

} // namespace kthost
