// A plug-in that puts another module in place of its first, told by the message "change"; each has a panel.
#include <kt/ktController.h>
#include <kt/ktModuleBase.h>
#include <qkt/QKTDockWindowManager.h>

#include <QLabel>

#include <memory>

namespace
{

class Changing : public ktModuleBase
{
public:
    explicit Changing(const char* name) : ktModuleBase(name, name, 0, nullptr)
    {
        ktController::getDockWindowManager()->add(name, name, _panel, "", QIcon(), name, Qt::NoDockWidgetArea,
                                                  true, nullptr);
    }

    ~Changing() override = default;

    QWidget* getWidget() const override { return _panel; }

private:
    QLabel* _panel = new QLabel; ///< The dock's.
};

std::unique_ptr<Changing> present;

void change(ktMessage&)
{
    ktController::getDockWindowManager()->remove(present->getWidget());
    auto next = std::make_unique<Changing>("Second"); // before the first one's memory is free again
    present = std::move(next);
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    present = std::make_unique<Changing>("First");
    ktController::addCB("change", change);
}
}
