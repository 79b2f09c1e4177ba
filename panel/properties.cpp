#include "module/ktAnimation.h"
#include "panel/ktAnimationGUIW.h"
#include "persistence/ktHotkey.h"
#include "registry/timeSensors.h"

#include <osg/Edit.h>

namespace
{

using osg::TimeSensorBase;

/// A text that is no item of the box leaves the box as it is.
void showHotkey(const QString& hotkey, QComboBox* modifier, QComboBox* key)
{
    const QLatin1Char separator(' ');
    modifier->setCurrentText(hotkey.section(separator, 0, 0));
    modifier->setEnabled(true);
    key->setCurrentText(hotkey.section(separator, 1, 1));
    key->setEnabled(true);
}

QString chosenHotkey(const QComboBox* modifier, const QComboBox* key)
{
    return modifier->currentText() + QLatin1Char(' ') + key->currentText();
}

} // namespace

void ktAnimation::animationDisplayProperties()
{
    if (!_current) {
        for (QComboBox* box :
             {_main->_stopKey, _main->_stopModifier, _main->_startKey, _main->_startModifier})
            box->setEnabled(false);
        _main->_comment->setText(QString());
        _main->_comment->setEnabled(false);
        return;
    }
    showHotkey(_current->stopHotkey, _main->_stopModifier, _main->_stopKey);
    showHotkey(_current->startHotkey, _main->_startModifier, _main->_startKey);
    _main->_comment->setText(_current->comment);
    _main->_comment->setEnabled(true);

    // The fraction wheel is never loaded: it keeps what it was last set to.
    forEachTimeSensor(_current->name.toUtf8().constData(),
                      [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
                          _main->_cycle_interval->blockSignals(true);
                          _main->_cycle_interval->setValue(sensor->getCycleInterval());
                          _main->_cycle_interval->blockSignals(false);
                      });
}

void ktAnimation::startKeyChange(const QString&)
{
    if (!_current)
        return;
    _current->startHotkey = chosenHotkey(_main->_startModifier, _main->_startKey);
    ktHotkey::mapHotkey(_current->startHotkey, _current->startKey, _current->startModifier);
}

void ktAnimation::stopKeyChange(const QString&)
{
    if (!_current)
        return;
    _current->stopHotkey = chosenHotkey(_main->_stopModifier, _main->_stopKey);
    ktHotkey::mapHotkey(_current->stopHotkey, _current->stopKey, _current->stopModifier);
}

void ktAnimation::commentChange(const QString&)
{
    if (!_current)
        return;
    // Latin-1 bytes read as UTF-8: what saved projects hold depends on it, so the round trip stays.
    const QByteArray bytes = _main->_comment->text().toLatin1();
    _current->comment = QString::fromUtf8(bytes.constData());
}

void ktAnimation::changedCycleInterval(double value)
{
    if (!_current)
        return;
    forEachTimeSensor(_current->name.toUtf8().constData(),
                      [value](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
                          sensor->setCycleInterval(value);
                          osg::endEdit(sensor, TimeSensorBase::CycleIntervalFieldMask);
                      });
}

void ktAnimation::changedFraction(double value)
{
    if (!_current)
        return;
    forEachTimeSensor(_current->name.toUtf8().constData(),
                      [value](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
                          sensor->setFraction(static_cast<float>(value));
                          osg::endEdit(sensor, TimeSensorBase::FractionFieldMask);
                      });
}
