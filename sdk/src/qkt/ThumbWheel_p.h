#pragma once

#include <QWidget>

/// The ribbed wheel that is dragged sideways: a notch every few pixels. It knows no value.
class ThumbWheel : public QWidget
{
    Q_OBJECT

public:
    explicit ThumbWheel(QWidget* parent);

    /// Pixels of drag for one notch.
    static constexpr int NotchWidth = 6;

    /// Turns the picture as if dragged by so many notches; nothing is emitted.
    void roll(double notches);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// Dragged on by so many notches, to the right where positive.
    void turned(int notches, Qt::KeyboardModifiers modifiers);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void paintRibs(QPainter& painter, const QRectF& drum) const;

    bool _dragging = false;
    int _lastX = 0;
    int _pending = 0;    ///< Pixels dragged that do not make a notch yet.
    double _phase = 0.0; ///< How far the wheel has turned, in pixels at its middle.
};
