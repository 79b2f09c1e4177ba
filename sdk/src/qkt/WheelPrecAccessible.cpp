#include "qkt/WheelPrecAccessible_p.h"

#include <qkt/QKTWheelPrec.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QGridLayout>
#include <QLabel>

namespace
{

QString plainText(const QLabel* label)
{
    QString text = label->text();
    text.remove(QLatin1Char('&'));
    return text;
}

const QLabel* buddyOf(const QWidget* field)
{
    for (const QLabel* label : field->window()->findChildren<QLabel*>())
        if (label->buddy() == field)
            return label;
    return nullptr;
}

const QLabel* labelBefore(const QWidget* field)
{
    const QWidget* parent = field->parentWidget();
    auto* grid = parent ? qobject_cast<QGridLayout*>(parent->layout()) : nullptr;
    const int index = grid ? grid->indexOf(const_cast<QWidget*>(field)) : -1;
    if (index < 0)
        return nullptr;
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(index, &row, &column, &rows, &columns);
    QLayoutItem* before = column > 0 ? grid->itemAtPosition(row, column - 1) : nullptr;
    return before ? qobject_cast<QLabel*>(before->widget()) : nullptr;
}

class NumberField final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit NumberField(QKTWheelPrec* field) : QAccessibleWidget(field, QAccessible::SpinBox), _field(field)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return WheelPrecAccessible::nameOf(_field);
        return kind == QAccessible::Value ? _field->text() : QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return _field->value(); }
    void setCurrentValue(const QVariant& value) override { _field->setValue(value.toDouble()); }
    QVariant maximumValue() const override { return _field->maximum(); }
    QVariant minimumValue() const override { return _field->minimum(); }
    QVariant minimumStepSize() const override { return _field->singleStep(); }

private:
    QKTWheelPrec* _field;
};

QAccessibleInterface* makeWheelInterface(const QString& className, QObject* object)
{
    auto* field = className == QLatin1String("QKTWheelPrec") ? qobject_cast<QKTWheelPrec*>(object) : nullptr;
    return field ? new NumberField(field) : nullptr;
}

} // namespace

void WheelPrecAccessible::install()
{
    static const bool installed = (QAccessible::installFactory(makeWheelInterface), true);
    Q_UNUSED(installed)
}

QString WheelPrecAccessible::nameOf(const QWidget* field)
{
    if (!field->accessibleName().isEmpty())
        return field->accessibleName();
    if (const QLabel* label = buddyOf(field))
        return plainText(label);
    const QLabel* label = labelBefore(field);
    return label ? plainText(label) : QString();
}

void WheelPrecAccessible::tellValue(QKTWheelPrec* field)
{
    QAccessibleValueChangeEvent event(field, field->value());
    QAccessible::updateAccessibility(&event);
}
