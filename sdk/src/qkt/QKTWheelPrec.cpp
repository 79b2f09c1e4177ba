#include <qkt/QKTWheelPrec.h>

#include "qkt/NumberText_p.h"
#include "qkt/Shades_p.h"
#include "qkt/ThumbWheel_p.h"
#include "qkt/WheelPrecAccessible_p.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double lowest = std::numeric_limits<double>::lowest();
constexpr double highest = std::numeric_limits<double>::max();
constexpr int anglePerNotch = 120;
constexpr int digitsShown = 12;

qint64 tenthsOfStep(Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier)
        return 100;
    return modifiers & Qt::ControlModifier ? 1 : 10;
}

} // namespace

QKTWheelPrec::QKTWheelPrec(QWidget* parent)
    : QWidget(parent),
      _field(new QLineEdit(this)),
      _thumb(new ThumbWheel(this)),
      _minimum(lowest),
      _maximum(highest)
{
    WheelPrecAccessible::install();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_field,
                      1000); // all the room up to its greatest width; only what is left after it stays empty
    layout->addWidget(_thumb);
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(_field);
    _field->installEventFilter(this);
    connect(_field, &QLineEdit::textEdited, this, &QKTWheelPrec::textEdited);
    connect(_thumb, &ThumbWheel::turned, this, [this](int notches, Qt::KeyboardModifiers modifiers) {
        stepByTenths(notches * tenthsOfStep(modifiers));
    });
    fitField();
    showValue();
}

void QKTWheelPrec::setSingleStep(double step)
{
    if (!(step > 0.0) || !std::isfinite(step))
        return;
    _singleStep = step;
    _anchor = _value;
    _tenths = 0;
    showValue();
}

void QKTWheelPrec::setMinimum(double minimum)
{
    const double bound = std::isinf(minimum) && minimum < 0.0 ? lowest : minimum;
    if (!std::isfinite(bound))
        return;
    _minimum = bound;
    _maximum = std::max(_maximum, bound);
    setValue(_value);
}

void QKTWheelPrec::setMaximum(double maximum)
{
    const double bound = std::isinf(maximum) && maximum > 0.0 ? highest : maximum;
    if (!std::isfinite(bound))
        return;
    _maximum = bound;
    _minimum = std::min(_minimum, bound);
    setValue(_value);
}

void QKTWheelPrec::setValue(double value)
{
    const double held = std::clamp(value, _minimum, _maximum);
    const bool isLimitless = std::isinf(value) && (held == lowest || held == highest);
    // A value that is there already leaves the anchor alone: a listener that writes back what it got must not
    // add rounding.
    if (std::isnan(value) || isLimitless || held == _value)
        return;
    _anchor = held;
    _tenths = 0;
    hold(held);
}

void QKTWheelPrec::stepBy(int steps)
{
    stepByTenths(qint64(steps) * 10);
}

void QKTWheelPrec::stepByTenths(qint64 tenths)
{
    commitText();
    const qint64 total = _tenths + tenths;
    const qint64 whole = total / 10;
    const qint64 rest = total % 10;
    double reached =
        _anchor + static_cast<double>(whole) * _singleStep + static_cast<double>(rest) * (_singleStep / 10.0);
    if (std::abs(reached) < _singleStep * 1e-9)
        reached = 0.0; // 0.3 less three steps of 0.1 is not 5.6e-17
    const double held = std::clamp(reached, _minimum, _maximum);
    _anchor = held == reached ? _anchor : held;
    _tenths = held == reached ? total : 0;
    if (held != _value)
        _thumb->roll(static_cast<double>(tenths) / 10.0);
    hold(held);
}

void QKTWheelPrec::hold(double value)
{
    if (value == _value)
        return;
    _value = value;
    if (!_typing)
        showValue();
    WheelPrecAccessible::tellValue(this);
    emit valueChanged(value);
}

QString QKTWheelPrec::text() const
{
    return _field->text();
}

void QKTWheelPrec::textEdited()
{
    _typing = true;
    markInvalid(!NumberText::canBecomeNumber(_field->text(), locale()));
}

void QKTWheelPrec::commitText()
{
    if (!_typing)
        return;
    const std::optional<double> typed = NumberText::parse(_field->text(), locale());
    // The text of the present value is no other value, though it is shortened.
    const bool isTheValue = _field->text() == NumberText::format(_value, _singleStep, locale());
    _typing = false;
    if (typed && !isTheValue)
        setValue(*typed);
    showValue();
}

void QKTWheelPrec::revertText()
{
    _typing = false;
    showValue();
}

void QKTWheelPrec::showValue()
{
    if (_typing)
        return;
    markInvalid(false);
    const QString shown = NumberText::format(_value, _singleStep, locale());
    if (shown != _field->text())
        _field->setText(shown);
}

void QKTWheelPrec::markInvalid(bool invalid)
{
    if (invalid == _field->testAttribute(Qt::WA_SetPalette))
        return;
    QPalette colors;
    if (invalid)
        colors.setColor(QPalette::Text,
                        Shades::isDark(palette()) ? QColor(255, 138, 128) : QColor(190, 20, 20));
    _field->setPalette(colors);
}

bool QKTWheelPrec::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != _field)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return handleKey(key->key(), key->modifiers() & ~Qt::KeypadModifier);
    }
    case QEvent::ShortcutOverride:
        // Where the host has Escape for a shortcut, it is still the typed text's first.
        if (!_typing || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
            return false;
        event->accept();
        return true;
    case QEvent::FocusIn:
        _field->setAccessibleName(WheelPrecAccessible::nameOf(this));
        break;
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
            commitText();
        break;
    default:
        break;
    }
    return false;
}

/// True where the key is done with; all others are the text field's.
bool QKTWheelPrec::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        stepByTenths(tenthsOfStep(modifiers) * (key == Qt::Key_Up ? 1 : -1));
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        stepBy(key == Qt::Key_PageUp ? 10 : -10);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        return !_typing && modifiers == Qt::NoModifier && goTo(key == Qt::Key_Home ? _minimum : _maximum);
    case Qt::Key_Escape: {
        const bool hadText = _typing;
        revertText();
        return hadText;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commitText();
        _field->selectAll();
        return false;
    default:
        return false;
    }
}

bool QKTWheelPrec::goTo(double bound)
{
    if (bound == lowest || bound == highest)
        return false;
    setValue(bound);
    return true;
}

void QKTWheelPrec::wheelEvent(QWheelEvent* event)
{
    if (!_field->hasFocus()) {
        event->ignore();
        return;
    }
    event->accept();
    // Some platforms turn the wheel sideways while a modifier is held.
    const QPoint angle = event->angleDelta();
    _wheelAngle += angle.y() != 0 ? angle.y() : angle.x();
    const int notches = _wheelAngle / anglePerNotch;
    _wheelAngle -= notches * anglePerNotch;
    if (notches != 0)
        stepByTenths(notches * tenthsOfStep(event->modifiers()));
}

void QKTWheelPrec::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        showValue();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitField();
}

void QKTWheelPrec::fitField()
{
    const int digits = _field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digitsShown;
    _field->setMaximumWidth(_field->minimumSizeHint().width() + digits);
    updateGeometry();
}

QSize QKTWheelPrec::sizeHint() const
{
    return {_field->maximumWidth() + layout()->spacing() + _thumb->sizeHint().width(),
            QWidget::sizeHint().height()};
}
