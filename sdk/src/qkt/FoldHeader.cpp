#include "qkt/FoldHeader_p.h"

#include "qkt/FoldHeaderAccessible_p.h"
#include "qkt/Shades_p.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace
{

constexpr int padding = 6;

} // namespace

FoldHeader::FoldHeader(QWidget* parent) : QAbstractButton(parent)
{
    FoldHeaderAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover); // repainted as the mouse comes and goes
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    connect(this, &QAbstractButton::clicked, this, [this] { emit foldRequested(!_collapsed); });
}

void FoldHeader::setCaption(const QString& caption)
{
    // Not the button's text: that would make a shortcut of an ampersand.
    _caption = caption;
    setAccessibleName(caption);
    updateGeometry();
    update();
}

void FoldHeader::setCollapsed(bool collapsed)
{
    _collapsed = collapsed;
    FoldHeaderAccessible::tellState(this);
    update();
}

int FoldHeader::arrowSize() const
{
    return fontMetrics().height() * 3 / 4;
}

QSize FoldHeader::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {padding + arrowSize() + padding + metrics.horizontalAdvance(_caption) + padding,
            metrics.height() + padding + padding / 2};
}

QSize FoldHeader::minimumSizeHint() const
{
    return {padding + arrowSize() + padding, sizeHint().height()};
}

void FoldHeader::keyPressEvent(QKeyEvent* event)
{
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit foldRequested(!_collapsed);
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        emit foldRequested((event->key() == Qt::Key_Left) != isRightToLeft);
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore(); // the scroll area's, not a walk through the buttons
        break;
    default:
        QAbstractButton::keyPressEvent(event);
        break;
    }
}

void FoldHeader::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void FoldHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colors = palette();
    const QColor ink = colors.color(QPalette::WindowText);
    const double strength = isDown() ? 0.22 : isEnabled() && underMouse() ? 0.16 : 0.09;
    const QRectF bar = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(Shades::mixed(colors.color(QPalette::Window), ink, strength));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(bar, 3.0, 3.0);

    const int size = arrowSize();
    const QRect box(padding, (height() - size) / 2, size, size);
    painter.setPen(ink);
    paintArrow(painter, QStyle::visualRect(layoutDirection(), rect(), box));
    const QRect text = rect().adjusted(padding + size + padding, 0, -padding, 0);
    painter.drawText(
        QStyle::visualRect(layoutDirection(), rect(), text),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)),
        fontMetrics().elidedText(_caption, Qt::ElideRight, text.width()));

    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colors.color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(bar.adjusted(0.5, 0.5, -0.5, -0.5), 3.0, 3.0);
    }
}

void FoldHeader::paintArrow(QPainter& painter, const QRectF& box) const
{
    painter.save();
    painter.translate(box.center());
    if (_collapsed)
        painter.rotate(layoutDirection() == Qt::RightToLeft ? 90.0 : -90.0);
    const double half = box.width() * 0.32;
    painter.setPen(
        QPen(painter.pen().color(), box.width() * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF chevron[] = {{-half, -half / 2.0}, {0.0, half / 2.0}, {half, -half / 2.0}};
    painter.drawPolyline(chevron, 3);
    painter.restore();
}
