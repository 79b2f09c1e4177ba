// A plug-in that fails when it has docked its panel and registered callbacks.
#include <kt/ktController.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <qkt/QKTDockWindowManager.h>

#include <QLabel>

#include <cstdlib>
#include <stdexcept>

namespace
{

void calledMessage(ktMessage&)
{
    std::abort();
}

void calledKey(int, int, int, QEvent*)
{
    std::abort();
}

void calledInterpreter(bool)
{
    std::abort();
}

const ktPythonInit registrar(calledInterpreter);

} // namespace

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    ktController::getDockWindowManager()->add("Late", "Late", new QLabel, "", QIcon(), "Late",
                                              Qt::NoDockWidgetArea, true, nullptr);
    ktController::addCB("late", calledMessage);
    ktOSGWidget::addMGLWPressKeyCB(calledKey);
    throw std::runtime_error("too late");
}
}
