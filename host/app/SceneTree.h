#pragma once

#include <kt/ktNodePtr.h>

#include <QWidget>

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace kthost
{

class SceneTreeModel;

/// The scene's nodes as a tree, with a filter by name. Its selection and the host's (ktSelectionManager) are
/// one. There is one at a time: it is also where ktScenegraph::scrollToNode() scrolls.
class SceneTree : public QWidget
{
    Q_OBJECT

public:
    explicit SceneTree(QWidget* parent = nullptr);
    ~SceneTree() override;

    /// Shows the scene as it is now, keeping what of the selection is still there.
    void refresh();

    /// Brings the node's row into sight; one that the filter hides clears the filter.
    void scrollTo(const ktNodePtr& node);

    QTreeView& view() { return *_view; }

signals:
    /// The host's selection became another one, by whomever.
    void selectionChanged();

private:
    void takeSelectionFromHost();
    void giveSelectionToHost();

    QLineEdit* _filter;
    QTreeView* _view;
    SceneTreeModel* _model;
    QSortFilterProxyModel* _shown;
    bool _isFollowing = false; ///< The selection comes from the host just now.
};

} // namespace kthost
