#include "host/app/SceneTree.h"

#include "host/app/SceneTreeModel.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace kthost
{
namespace
{

/// Deeper levels than these are folded when a scene is shown.
constexpr int levelsOpen = 2;

SceneTree* current = nullptr;

} // namespace

SceneTree::SceneTree(QWidget* parent)
    : QWidget(parent),
      _filter(new QLineEdit(this)),
      _view(new QTreeView(this)),
      _model(new SceneTreeModel(this)),
      _shown(new QSortFilterProxyModel(this))
{
    _filter->setPlaceholderText(tr("Filter by name"));
    _filter->setAccessibleName(tr("Filter the scene's nodes by name"));
    _filter->setClearButtonEnabled(true);
    _shown->setSourceModel(_model);
    _shown->setRecursiveFilteringEnabled(true);
    _shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    _view->setModel(_shown);
    _view->setAccessibleName(tr("Nodes of the scene"));
    _view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _view->setUniformRowHeights(true);
    _view->setFrameShape(QFrame::NoFrame);
    _view->header()->setStretchLastSection(true);
    _view->header()->resizeSection(SceneTreeModel::NameColumn, 150);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(_filter);
    layout->addWidget(_view);
    setFocusProxy(_view);

    connect(_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QScopedValueRollback<bool> guard(_isFollowing, true); // hidden rows stay selected in the host
        _shown->setFilterFixedString(text);
        if (!text.isEmpty())
            _view->expandAll();
        takeSelectionFromHost();
    });
    connect(_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SceneTree::giveSelectionToHost);
    current = this;
    ktScenegraph::setScrollHandler([](const ktNodePtr& node) { current->scrollTo(node); });
    ktSelectionManager::setChangeHandler([] {
        current->takeSelectionFromHost();
        emit current->selectionChanged();
    });
}

SceneTree::~SceneTree()
{
    ktScenegraph::setScrollHandler(nullptr);
    ktSelectionManager::setChangeHandler(nullptr);
    current = nullptr;
}

void SceneTree::refresh()
{
    const QScopedValueRollback<bool> guard(_isFollowing, true);
    _model->setRoot(ktScenegraph::getRootNode());
    _view->expandToDepth(levelsOpen - 1);
    std::vector<ktNodePtr> present;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes()) {
        if (_model->indexOf(node.operator->()).isValid())
            present.push_back(node);
    }
    ktSelectionManager::selectNodes(present);
}

void SceneTree::scrollTo(const ktNodePtr& node)
{
    const QModelIndex source = _model->indexOf(node.operator->());
    if (!source.isValid())
        return;
    if (!_shown->mapFromSource(source).isValid())
        _filter->clear();
    _view->scrollTo(_shown->mapFromSource(source), QAbstractItemView::PositionAtCenter);
}

void SceneTree::takeSelectionFromHost()
{
    const QScopedValueRollback<bool> guard(_isFollowing, true);
    QItemSelection selection;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes()) {
        const QModelIndex index = _shown->mapFromSource(_model->indexOf(node.operator->()));
        if (index.isValid())
            selection.select(index, index);
    }
    _view->selectionModel()->select(selection,
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void SceneTree::giveSelectionToHost()
{
    if (_isFollowing)
        return;
    std::vector<ktNodePtr> nodes;
    for (const QModelIndex& index : _view->selectionModel()->selectedRows())
        nodes.emplace_back(_model->nodeAt(_shown->mapToSource(index)));
    const QScopedValueRollback<bool> guard(_isFollowing, true);
    ktSelectionManager::selectNodes(nodes);
}

} // namespace kthost
