#include <qkt/QKTDockWindowManager.h>

#include <QDockWidget>
#include <QMainWindow>

QKTDockWindowManager::QKTDockWindowManager(QMainWindow* window) : QObject(window), _window(window) {}

QDockWidget* QKTDockWindowManager::add(const char* name, const QString&, QWidget* widget, const QString& help,
                                       const QIcon& icon, const QString& title, Qt::DockWidgetArea area, bool visible,
                                       QMenu*)
{
    auto* dock = new QDockWidget(title, _window);
    dock->setObjectName(QString::fromUtf8(name));
    dock->setWindowIcon(icon);
    dock->setWhatsThis(help);
    dock->setWidget(widget);
    _window->addDockWidget(area == Qt::NoDockWidgetArea ? Qt::RightDockWidgetArea : area, dock);
    dock->setVisible(visible);
    return dock;
}

void QKTDockWindowManager::remove(QWidget* widget)
{
    for (QDockWidget* dock : _window->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (widget && dock->widget() == widget) {
            delete dock;
            return;
        }
    }
}
