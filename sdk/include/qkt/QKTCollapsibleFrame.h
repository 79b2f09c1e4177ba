#pragma once

#include <kt/Export.h>

#include <QFrame>

class QToolButton;
class QVBoxLayout;

/// A frame with a caption that folds its page away and shows it again, by mouse and by key.
class KT_EXPORT QKTCollapsibleFrame : public QFrame
{
    Q_OBJECT

public:
    explicit QKTCollapsibleFrame(QWidget* parent = nullptr);

    QString caption() const;
    void setCaption(const QString& caption);

    /// Puts a page below the caption, under those that are there; the frame owns it. Null is ignored.
    void addPage(QWidget* page);

    bool isCollapsed() const { return _collapsed; }

public slots:
    void setCollapsed(bool collapsed);

signals:
    void collapsedChanged(bool collapsed);

private:
    QToolButton* _header;
    QWidget* _pages;
    QVBoxLayout* _pageLayout;
    bool _collapsed = false;
};
