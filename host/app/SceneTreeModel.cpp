#include "host/app/SceneTreeModel.h"

#include <kt/NodeUtils.h>
#include <osg/FieldContainerType.h>
#include <osg/TimeSensor.h>

#include <QFont>

namespace kthost
{
namespace
{

bool isTimeSensor(const osg::NodePtr& node)
{
    return node->getCore() && node->getCore()->getType().isDerivedFrom(osg::TimeSensor::getClassType());
}

QString kindOf(const osg::NodePtr& node)
{
    return node->getCore() ? QString::fromUtf8(node->getCore()->getType().getName()) : QString();
}

} // namespace

void SceneTreeModel::setRoot(const osg::NodePtr& root)
{
    beginResetModel();
    _entries.clear();
    _root = root.get();
    std::vector<Entry> pending;
    if (root)
        pending.push_back({root, nullptr, 0, {}});
    while (!pending.empty()) {
        Entry entry = std::move(pending.back());
        pending.pop_back();
        const osg::Node* node = entry.node.get();
        for (std::size_t i = 0; i < node->getNChildren(); ++i) {
            entry.children.push_back(node->getChild(i).get());
            pending.push_back({node->getChild(i), node, static_cast<int>(i), {}});
        }
        _entries.emplace(node, std::move(entry));
    }
    endResetModel();
}

const SceneTreeModel::Entry& SceneTreeModel::entryAt(const QModelIndex& index) const
{
    return _entries.at(static_cast<const osg::Node*>(index.internalPointer()));
}

QModelIndex SceneTreeModel::indexOf(const osg::Node* node) const
{
    const auto found = _entries.find(node);
    if (found == _entries.end())
        return {};
    return createIndex(found->second.row, NameColumn, const_cast<osg::Node*>(node));
}

osg::NodePtr SceneTreeModel::nodeAt(const QModelIndex& index) const
{
    return index.isValid() ? entryAt(index).node : osg::NodePtr();
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const osg::Node* node =
        parent.isValid() ? entryAt(parent).children[static_cast<std::size_t>(row)] : _root;
    return createIndex(row, column, const_cast<osg::Node*>(node));
}

QModelIndex SceneTreeModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(entryAt(index).parent) : QModelIndex();
}

int SceneTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return _root ? 1 : 0;
    return parent.column() == NameColumn ? static_cast<int>(entryAt(parent).children.size()) : 0;
}

int SceneTreeModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

QVariant SceneTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const osg::NodePtr& node = entryAt(index).node;
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return index.column() == NameColumn ? QString::fromUtf8(NodeUtils::getName(node)) : kindOf(node);
    if (role == Qt::FontRole && isTimeSensor(node)) {
        QFont font;
        font.setBold(true); // animations stand out
        return font;
    }
    return {};
}

QVariant SceneTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Name") : tr("Kind");
}

} // namespace kthost
