#include <qkt/QKTCollapsibleFrame.h>

#include <QToolButton>
#include <QVBoxLayout>

QKTCollapsibleFrame::QKTCollapsibleFrame(QWidget* parent)
    : QFrame(parent), _header(new QToolButton(this)), _pages(new QWidget(this)), _pageLayout(new QVBoxLayout(_pages))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_header);
    layout->addWidget(_pages);
    _pageLayout->setContentsMargins(0, 0, 0, 0);
    _header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    _header->setArrowType(Qt::DownArrow);
    connect(_header, &QToolButton::clicked, this, [this] { setCollapsed(!_collapsed); });
}

QString QKTCollapsibleFrame::caption() const
{
    return _header->text();
}

void QKTCollapsibleFrame::setCaption(const QString& caption)
{
    _header->setText(caption);
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
    _pages->setVisible(!collapsed);
    _header->setArrowType(collapsed ? Qt::RightArrow : Qt::DownArrow);
    emit collapsedChanged(collapsed);
}
