#include "host/app/window/SceneTreeModel.h"

#include "host/app/FrameLoop.h"

#include <kt/NodeUtils.h>
#include <osg/FieldContainerType.h>

#include <QFont>

namespace kthost
{
namespace
{

QString nameOf(const osg::NodePtr& node)
{
    return QString::fromUtf8(NodeUtils::getName(node));
}

QString kindOf(const osg::NodePtr& node)
{
    return node->getCore() ? QString::fromUtf8(node->getCore()->getType().getName()) : QString();
}

QFont bold()
{
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

void SceneTreeModel::setRoot(const osg::NodePtr& root)
{
    beginResetModel();
    _places.clear();
    _entries.clear();
    _root = root;
    if (root)
        _entries.push_back({root, 0, 0});
    for (std::size_t place = 0; place < _entries.size(); ++place) {
        const osg::NodePtr node = _entries[place].node;
        _entries[place].firstChild = _entries.size();
        _entries[place].childCount = static_cast<int>(node->getNChildren());
        for (std::size_t i = 0; i < node->getNChildren(); ++i)
            _entries.push_back({node->getChild(i), place, static_cast<int>(i)});
    }
    endResetModel();
}

QModelIndex SceneTreeModel::indexAt(std::size_t place) const
{
    return createIndex(_entries[place].row, 0, static_cast<quintptr>(place));
}

QModelIndex SceneTreeModel::indexOf(const osg::Node* node) const
{
    if (_places.empty()) {
        _places.reserve(_entries.size());
        for (std::size_t place = 0; place < _entries.size(); ++place)
            _places.emplace(_entries[place].node.get(), place);
    }
    const auto found = _places.find(node);
    return found == _places.end() ? QModelIndex() : indexAt(found->second);
}

osg::NodePtr SceneTreeModel::nodeAt(const QModelIndex& index) const
{
    return index.isValid() ? entryAt(index).node : osg::NodePtr();
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return indexAt(parent.isValid() ? entryAt(parent).firstChild + static_cast<std::size_t>(row) : 0);
}

QModelIndex SceneTreeModel::parent(const QModelIndex& index) const
{
    return index.isValid() && index.internalId() != 0 ? indexAt(entryAt(index).parent) : QModelIndex();
}

int SceneTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return _root ? 1 : 0;
    return entryAt(parent).childCount;
}

int SceneTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant SceneTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const osg::NodePtr& node = entryAt(index).node;
    switch (role) {
    case Qt::DisplayRole:
        return nameOf(node);
    case KindRole:
        return nameOf(node) == kindOf(node) ? QString() : kindOf(node);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return nameOf(node) == kindOf(node) ? nameOf(node) : tr("%1, %2").arg(nameOf(node), kindOf(node));
    case Qt::FontRole:
        return timeSensorOf(node) ? bold() : QVariant();
    default:
        return {};
    }
}

} // namespace kthost
