#pragma once

#include <QAbstractButton>

/// The caption bar of a folding frame: an arrow and a bold text across the full width. It folds nothing
/// itself.
class FoldHeader : public QAbstractButton
{
    Q_OBJECT

public:
    explicit FoldHeader(QWidget* parent);

    QString caption() const { return _caption; }
    void setCaption(const QString& caption);

    bool isCollapsed() const { return _collapsed; }

    /// What is shown and told to assistive tools; nothing is emitted.
    void setCollapsed(bool collapsed);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The user wants it so.
    void foldRequested(bool collapsed);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void paintArrow(QPainter& painter, const QRectF& box) const;
    int arrowSize() const;

    QString _caption;
    bool _collapsed = false;
};
