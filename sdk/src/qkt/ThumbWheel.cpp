#include "qkt/ThumbWheel_p.h"

#include "qkt/Shades_p.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <cmath>

namespace
{

constexpr double ribSpacing = 8.0;

// How much of the drum is seen: a little less than half of it, so that the outermost ribs are not lines on
// lines.
constexpr double halfAngle = 1.35;

} // namespace

ThumbWheel::ThumbWheel(QWidget* parent) : QWidget(parent)
{
    setCursor(Qt::SizeHorCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setToolTip(tr("Drag to change the number\nShift: ten times as far, Ctrl: a tenth as far"));
}

void ThumbWheel::roll(double notches)
{
    _phase = std::fmod(_phase + notches * NotchWidth, ribSpacing);
    update();
}

QSize ThumbWheel::sizeHint() const
{
    return {fontMetrics().height() * 5, fontMetrics().height() + 4};
}

QSize ThumbWheel::minimumSizeHint() const
{
    return {fontMetrics().height() * 2, fontMetrics().height()};
}

void ThumbWheel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    _dragging = true;
    _lastX = event->x();
    _pending = 0;
    update();
}

void ThumbWheel::mouseMoveEvent(QMouseEvent* event)
{
    if (!_dragging)
        return QWidget::mouseMoveEvent(event);
    const int moved = event->x() - _lastX;
    _lastX = event->x();
    _pending += moved;
    const int notches = _pending / NotchWidth;
    _pending -= notches * NotchWidth;
    roll(static_cast<double>(moved) / NotchWidth);
    if (notches != 0)
        emit turned(notches, event->modifiers());
}

void ThumbWheel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    _dragging = false;
    update();
}

void ThumbWheel::enterEvent(QEvent* event)
{
    QWidget::enterEvent(event);
    update();
}

void ThumbWheel::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    update();
}

void ThumbWheel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colors = palette();
    const QColor body = colors.color(QPalette::Button);
    const QColor ink = colors.color(QPalette::ButtonText);
    const bool lit = isEnabled() && (_dragging || underMouse());
    const QRectF drum = QRectF(rect()).adjusted(1.5, 2.5, -1.5, -2.5);

    QLinearGradient shade(drum.topLeft(), drum.topRight());
    const QColor middle = Shades::isDark(colors) ? Shades::mixed(body, Qt::white, lit ? 0.22 : 0.14)
                                                 : Shades::mixed(body, Qt::white, lit ? 0.85 : 0.55);
    const QColor edge = Shades::mixed(body, Qt::black, 0.28);
    shade.setColorAt(0.0, edge);
    shade.setColorAt(0.3, Shades::mixed(edge, middle, 0.8));
    shade.setColorAt(0.5, middle);
    shade.setColorAt(0.7, Shades::mixed(edge, middle, 0.8));
    shade.setColorAt(1.0, edge);

    painter.setOpacity(isEnabled() ? 1.0 : 0.45);
    painter.setBrush(shade);
    painter.setPen(_dragging ? colors.color(QPalette::Highlight)
                             : Shades::mixed(body, ink, Shades::isDark(colors) ? 0.25 : 0.4));
    painter.drawRoundedRect(drum, 3.0, 3.0);
    paintRibs(painter, drum);
}

void ThumbWheel::paintRibs(QPainter& painter, const QRectF& drum) const
{
    const QColor ink = palette().color(QPalette::ButtonText);
    const QColor body = palette().color(QPalette::Button);
    const double radius = drum.width() / 2.0 / std::sin(halfAngle);
    const double pitch = ribSpacing / radius;
    const double start = std::remainder(_phase / radius, pitch);
    const int ribs = static_cast<int>(halfAngle / pitch) + 1;
    for (int i = -ribs; i <= ribs; ++i) {
        const double angle = start + i * pitch;
        const double x = drum.center().x() + radius * std::sin(angle);
        if (std::abs(angle) >= halfAngle || x < drum.left() + 3.5 || x > drum.right() - 3.5)
            continue;
        // Towards the edges the ribs turn away: they grow thinner and fainter.
        const double facing = std::cos(angle);
        const QColor shadow = Shades::mixed(body, ink, 0.15 + 0.45 * facing);
        const QColor light = Shades::mixed(body, Qt::white, 0.25 + 0.5 * facing);
        const double width = 0.5 + facing;
        const auto line = [&](double at, const QColor& color) {
            painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(QPointF(at, drum.top() + 2.5), QPointF(at, drum.bottom() - 2.5));
        };
        line(x, shadow);
        if (!Shades::isDark(palette()))
            line(x + width, light);
    }
}
