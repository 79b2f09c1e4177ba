#pragma once

#include <osg/Node.h>

#include <QAbstractItemModel>

#include <unordered_map>

namespace kthost
{

/// The scene's nodes as a tree of rows: name and kind.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { NameColumn, KindColumn, ColumnCount };

    using QAbstractItemModel::QAbstractItemModel;

    /// Shows the tree below `root` (null: nothing) as it is now; to be called again when it has changed.
    void setRoot(const osg::NodePtr& root);

    /// The row of a node; invalid where the node is not in the tree that is shown.
    QModelIndex indexOf(const osg::Node* node) const;

    /// The node of a row; null for an invalid index.
    osg::NodePtr nodeAt(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// What is shown stays alive, with its rows, until the next setRoot(), whatever becomes of the scene.
    struct Entry
    {
        osg::NodePtr node;
        const osg::Node* parent;
        int row;
        std::vector<const osg::Node*> children;
    };

    const Entry& entryAt(const QModelIndex& index) const;

    std::unordered_map<const osg::Node*, Entry> _entries;
    const osg::Node* _root = nullptr;
};

} // namespace kthost
