#include <qkt/QKTCollapsibleFrame.h>

#include "qkt/FoldHeader_p.h"
#include "qkt/UiSettings_p.h"

#include <QDialog>
#include <QEvent>
#include <QMainWindow>
#include <QVBoxLayout>

QKTCollapsibleFrame::QKTCollapsibleFrame(QWidget* parent)
    : QFrame(parent),
      _header(new FoldHeader(this)),
      _pages(new QWidget(this)),
      _pageLayout(new QVBoxLayout(_pages))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(_header);
    layout->addWidget(_pages);
    _pageLayout->setContentsMargins(0, 0, 0, 0);
    connect(_header, &FoldHeader::foldRequested, this, &QKTCollapsibleFrame::foldByUser);
}

QString QKTCollapsibleFrame::caption() const
{
    return _header->caption();
}

void QKTCollapsibleFrame::setCaption(const QString& caption)
{
    _header->setCaption(caption);
    setAccessibleName(caption);
}

void QKTCollapsibleFrame::addPage(QWidget* page)
{
    if (page)
        _pageLayout->addWidget(page);
}

void QKTCollapsibleFrame::setCollapsed(bool collapsed)
{
    if (collapsed == _collapsed)
        return;
    _collapsed = collapsed;
    const QWidget* focused = focusWidget();
    const bool losesFocus = collapsed && focused && focused->hasFocus() && _pages->isAncestorOf(focused);
    if (losesFocus)
        _header->setFocus(Qt::OtherFocusReason);
    _pages->setVisible(!collapsed);
    _header->setCollapsed(collapsed);
    emit collapsedChanged(collapsed);
}

void QKTCollapsibleFrame::foldByUser(bool collapsed)
{
    setCollapsed(collapsed);
    const QString key = settingsKey();
    if (!key.isEmpty())
        UiSettings::setValue(key, collapsed);
}

bool QKTCollapsibleFrame::event(QEvent* event)
{
    // Comes once, before the first show, when the frame has its name and its place.
    if (event->type() == QEvent::Polish)
        restore();
    return QFrame::event(event);
}

void QKTCollapsibleFrame::restore()
{
    const QString key = settingsKey();
    const QVariant remembered = key.isEmpty() ? QVariant() : UiSettings::value(key);
    if (remembered.isValid())
        setCollapsed(remembered.toBool());
}

/// Empty for a frame without a name.
QString QKTCollapsibleFrame::settingsKey() const
{
    if (objectName().isEmpty())
        return QString();
    QString path;
    for (const QWidget* widget = this; widget; widget = widget->parentWidget()) {
        QString name = widget->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
            path.prepend(QLatin1Char('/') + name.replace(QLatin1Char('/'), QLatin1Char('_')));
        if (qobject_cast<const QMainWindow*>(widget) || qobject_cast<const QDialog*>(widget))
            break;
    }
    return QStringLiteral("collapsed") + path;
}
