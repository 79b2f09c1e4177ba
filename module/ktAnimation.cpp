#include "module/ktAnimation.h"

#include "panel/ktAnimationGUIW.h"

#include <kt/ktController.h>
#include <kt/ktIconManager.h>
#include <kt/ktMessageId.h>
#include <kt/ktOSGWidget.h>
#include <qkt/QKTDockWindowManager.h>

#include <QMainWindow>

namespace
{

constexpr unsigned int subscription =
    ktMessageId::SceneCleared | ktMessageId::Project | ktMessageId::SceneChanged;

struct NamedCallback
{
    const char* name;
    void (*callback)(ktMessage&);
};

constexpr NamedCallback namedCallbacks[] = {
    {"animationStart", ktAnimation::animStartCB},       {"animationStop", ktAnimation::animStopCB},
    {"animationToggle", ktAnimation::animToggleCB},     {"animationPause", ktAnimation::animPauseCB},
    {"animationContinue", ktAnimation::animContinueCB}, {"animationReset", ktAnimation::animResetCB},
};

} // namespace

ktAnimation* ktAnimation::_the = nullptr;
ktAnimationGUIW* ktAnimation::_main = nullptr;

ktAnimation::ktAnimation() : ktModuleBase("Animation", "Animation", subscription, nullptr)
{
    _the = this;
    _main = new ktAnimationGUIW(ktController::getMainWindow(), {});
    dockPanel();
    connectPanel();
    _current = nullptr;
    animationDisplayList();
    animationDisplayProperties();
    for (const NamedCallback& named : namedCallbacks)
        ktController::addCB(named.name, named.callback);
    ktOSGWidget::addMGLWPressKeyCB(pressedKey);
}

ktAnimation::~ktAnimation()
{
    ktOSGWidget::subMGLWPressKeyCB(pressedKey);
    for (const NamedCallback& named : namedCallbacks)
        ktController::subCB(named.name, named.callback);
}

QWidget* ktAnimation::getWidget() const
{
    return _main;
}

void ktAnimation::init() {}

void ktAnimation::dockPanel()
{
    ktController::getDockWindowManager()->add("VRML Animation", QStringLiteral("Animation"), _main,
                                              QStringLiteral("Vidhint_Animation"),
                                              ktIconManager::getIcon("ModuleAnimation", ""),
                                              tr("VRML Animation"), Qt::NoDockWidgetArea, true, nullptr);
}

void ktAnimation::connectPanel()
{
    connect(_main->_animationList, SIGNAL(itemSelectionChanged()), SLOT(animationSelected()));
    connect(_main->_animationList, SIGNAL(onDelete()), SLOT(animationDelete()));
    connect(_main->_startModifier, SIGNAL(activated(const QString&)), SLOT(startKeyChange(const QString&)));
    connect(_main->_startKey, SIGNAL(activated(const QString&)), SLOT(startKeyChange(const QString&)));
    connect(_main->_stopModifier, SIGNAL(activated(const QString&)), SLOT(stopKeyChange(const QString&)));
    connect(_main->_stopKey, SIGNAL(activated(const QString&)), SLOT(stopKeyChange(const QString&)));
    connect(_main->_comment, SIGNAL(textChanged(const QString&)), SLOT(commentChange(const QString&)));

    _main->_cycle_interval->setSingleStep(0.1);
    _main->_cycle_interval->setMinimum(0.0);
    connect(_main->_cycle_interval, SIGNAL(valueChanged(double)), SLOT(changedCycleInterval(double)));

    // The step is the single-precision 0.01: the fraction field that it steps through is single-precision
    // too.
    _main->_fraction->setSingleStep(static_cast<double>(0.01F));
    _main->_fraction->setMinimum(0.0);
    _main->_fraction->setMaximum(1.0);
    connect(_main->_fraction, SIGNAL(valueChanged(double)), SLOT(changedFraction(double)));
}
