#pragma once

#include <osg/Node.h>

#include <QAbstractItemModel>

#include <unordered_map>
#include <vector>

namespace kthost
{

/// The scene's nodes as a tree of rows, in one column: their names. Rows of time sensors stand out.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// The node's kind, such as "Transform"; empty where it goes by that for want of a name.
    static constexpr int KindRole = Qt::UserRole;

    using QAbstractItemModel::QAbstractItemModel;

    /// Shows the tree below `root` (null: nothing) as it is now; to be called again when it has changed.
    void setRoot(const osg::NodePtr& root);

    const osg::NodePtr& root() const { return _root; }

    /// How many nodes are shown.
    int size() const { return static_cast<int>(_entries.size()); }

    /// The row of a node; invalid where the node is not in the tree that is shown. The first call after
    /// setRoot() costs the size of the tree.
    QModelIndex indexOf(const osg::Node* node) const;

    /// The node of a row; null for an invalid index.
    osg::NodePtr nodeAt(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /// What is shown stays alive, with its rows, until the next setRoot(), whatever becomes of the scene.
    struct Entry
    {
        osg::NodePtr node;
        std::size_t parent;
        int row;
        std::size_t firstChild = 0;
        int childCount = 0;
    };

    const Entry& entryAt(const QModelIndex& index) const { return _entries[index.internalId()]; }
    QModelIndex indexAt(std::size_t place) const;

    osg::NodePtr _root;
    std::vector<Entry> _entries; ///< Level by level, so that children lie side by side.
    mutable std::unordered_map<const osg::Node*, std::size_t> _places; ///< Made when first needed.
};

} // namespace kthost
