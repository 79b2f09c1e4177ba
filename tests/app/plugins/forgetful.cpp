// A plug-in that never takes its callbacks back.
#include <kt/ktController.h>
#include <kt/ktOSGWidget.h>

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    ktController::addCB("forgotten", [](ktMessage&) {});
    ktOSGWidget::addMGLWPressKeyCB([](int, int, int, QEvent*) {});
}
}
