// A plug-in that fails when it has docked its panel, registered callbacks and made a module that lives on.
#include <kt/ktController.h>
#include <kt/ktModuleBase.h>
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

class Late : public ktModuleBase
{
public:
    Late() : ktModuleBase("Late", "Late", 0x10, nullptr) {}

    void update() override { std::abort(); }
    void loop() override { std::abort(); }
    void receivedMessage(ktMessage&) override { std::abort(); }
};

const ktPythonInit registrar(calledInterpreter);

} // namespace

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    static Late module;
    ktController::getDockWindowManager()->add("Late", "Late", new QLabel, "", QIcon(), "Late",
                                              Qt::NoDockWidgetArea, true, nullptr);
    ktController::addCB("late", calledMessage);
    ktOSGWidget::addMGLWPressKeyCB(calledKey);
    throw std::runtime_error("too late");
}
}
