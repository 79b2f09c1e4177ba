#pragma once

#include <QApplication>

namespace kthost
{

/// The program's QApplication. An exception that a plug-in lets out of the handling of an event, a timer or a
/// signal is told of in one line, and the program goes on.
class HostApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace kthost
