#pragma once

#include <kt/Export.h>

#include <QFrame>

class FoldHeader;
class QVBoxLayout;

/// A frame with a caption that folds its pages away and shows them again: by a click on the caption, or by
/// key while the caption has the focus: Space and Return turn it over, Left folds, Right unfolds (the other
/// way round in right-to-left layouts).
///
/// What the user folds is remembered between runs, for frames with an object name, under the object names
/// from the nearest QMainWindow or QDialog above down to the frame; frames with the same path share it. It is
/// kept in the application's QSettings, and not at all where QCoreApplication::organizationName() is empty.
/// It is taken up once, right before the frame is first shown, and then stands over what setCollapsed() said.
class KT_EXPORT QKTCollapsibleFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE setCaption)
    Q_PROPERTY(bool collapsed READ isCollapsed WRITE setCollapsed NOTIFY collapsedChanged)

public:
    /// Unfolded, without a caption.
    explicit QKTCollapsibleFrame(QWidget* parent = nullptr);

    QString caption() const;

    /// Shown as it is, an ampersand too; it is also the frame's name for assistive tools.
    void setCaption(const QString& caption);

    /// Puts a page below the caption, under those that are there; the frame owns it. Null is ignored.
    void addPage(QWidget* page);

    bool isCollapsed() const { return _collapsed; }

public slots:
    /// Folds or unfolds without remembering it. A page that has the focus leaves it to the caption.
    void setCollapsed(bool collapsed);

signals:
    /// Each time it becomes folded or unfolded, by whomever.
    void collapsedChanged(bool collapsed);

protected:
    bool event(QEvent* event) override;

private:
    void foldByUser(bool collapsed);
    void restore();
    QString settingsKey() const;

    FoldHeader* _header;
    QWidget* _pages;
    QVBoxLayout* _pageLayout;
    bool _collapsed = false;
};
