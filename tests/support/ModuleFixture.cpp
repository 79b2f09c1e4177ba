#include "tests/support/ModuleFixture.h"

#include "panel/ktAnimationGUIW.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>

namespace kt::test
{

ModuleFixture::ModuleFixture()
{
    ktController::setMainWindow(&window, &docks);
    setSimulationTime(0.0);
    ktFileIO::clearProject();
    _module = std::make_unique<OpenAnimation>();
}

ModuleFixture::~ModuleFixture()
{
    _module.reset();
    ktFileIO::clearProject();
    ktController::setMainWindow(nullptr, nullptr);
}

ktAnimationGUIW& ModuleFixture::panel() const
{
    return *ktAnimation::_main;
}

ktAnimationListWidget& ModuleFixture::list() const
{
    return *ktAnimation::_main->_animationList;
}

void ModuleFixture::setSimulationTime(double seconds)
{
    ktController::setSimulationTime(seconds);
}

ktAnimationInfo& ModuleFixture::addRecord(const char* name)
{
    module().insertAnimation(name);
    return *module().findAnimation(name);
}

QStringList ModuleFixture::records() const
{
    QStringList names;
    for (const ktAnimationInfo& animation : _module->_animations)
        names << animation.name;
    return names;
}

QStringList ModuleFixture::rows() const
{
    QStringList texts;
    for (int i = 0; i < list().count(); ++i)
        texts << list().item(i)->data(Qt::DisplayRole).toString();
    return texts;
}

void ModuleFixture::select(const QStringList& texts) const
{
    for (int i = 0; i < list().count(); ++i)
        list().item(i)->setSelected(texts.contains(list().item(i)->text()));
}

} // namespace kt::test
