#pragma once

#include <kt/ktNodePtr.h>

#include <QWidget>

#include <vector>

class QLineEdit;
class QModelIndex;
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

    /// Shows the scene as it is now, keeping what of the selection and of the open branches is still there.
    void refresh();

    /// Brings the node's row into sight; one that the filter hides clears the filter.
    void scrollTo(const ktNodePtr& node);

    QTreeView& view() { return *_view; }
    QLineEdit& filter() { return *_filter; }

    QSize sizeHint() const override;

signals:
    /// The host's selection became another one, by whomever.
    void selectionChanged();

private:
    void followSelection();
    void takeSelectionFromHost();
    void giveSelectionToHost();
    void applyFilter(const QString& text);
    void dropLostNodes();
    void fitNames();
    QModelIndex shown(const ktNodePtr& node) const;
    std::vector<ktNodePtr> openBranches() const;

    QLineEdit* _filter;
    QTreeView* _view;
    SceneTreeModel* _model;
    QSortFilterProxyModel* _shown;
    bool _isFollowing = false; ///< The rows' selection follows something else just now.
    bool _isGiving = false;    ///< The host's selection follows the rows' just now.
};

} // namespace kthost
