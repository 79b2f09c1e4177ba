#pragma once

#include <QListWidget>

#include <string>
#include <vector>

class QDrag;
class QMenu;

/// The list of animations with its context menu and its keys. Acts on all selected rows, by their display
/// text as Latin-1, through the one ktAnimation; rows come and go by the module only.
class ktAnimationListWidget : public QListWidget
{
    Q_OBJECT

public:
    /// `name` and `flags` are ignored.
    explicit ktAnimationListWidget(QWidget* parent, const char* name = nullptr, Qt::WindowFlags flags = {});

    /// Null: rows are never dragged out.
    QDrag* dragObject();

signals:
    /// The user wants the selected animations deleted; also where none is selected.
    void onDelete();

public slots:
    void animRefresh();
    void animDelete();
    void animClear();
    void animStart();
    void animToggle();
    void animReset();

    /// Enables the menu entries that need a selection while there is one.
    void animSelected();
    void animShowNodes();

    /// Opens the context menu; `point` is mapped from the list widget, not from its viewport.
    void showPopup(const QPoint& point);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenu();
    std::vector<std::string> selectedNames() const;

    QMenu* _menu;
};
