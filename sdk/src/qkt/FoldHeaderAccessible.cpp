#include "qkt/FoldHeaderAccessible_p.h"

#include "qkt/FoldHeader_p.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace
{

class Header final : public QAccessibleWidget
{
public:
    explicit Header(FoldHeader* header) : QAccessibleWidget(header, QAccessible::Button), _header(header) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = !_header->isCollapsed();
        state.collapsed = _header->isCollapsed();
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            _header->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    FoldHeader* _header;
};

QAccessibleInterface* makeHeaderInterface(const QString& className, QObject* object)
{
    auto* header = className == QLatin1String("FoldHeader") ? qobject_cast<FoldHeader*>(object) : nullptr;
    return header ? new Header(header) : nullptr;
}

} // namespace

void FoldHeaderAccessible::install()
{
    static const bool installed = (QAccessible::installFactory(makeHeaderInterface), true);
    Q_UNUSED(installed)
}

void FoldHeaderAccessible::tellState(FoldHeader* header)
{
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    QAccessibleStateChangeEvent event(header, changed);
    QAccessible::updateAccessibility(&event);
}
