#include "host/app/window/SceneTree.h"

#include "host/app/window/NodeDelegate.h"
#include "host/app/window/SceneTreeModel.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace kthost
{
namespace
{

/// Deeper levels than these are folded when a scene is shown.
constexpr int levelsOpen = 2;

/// With more rows than these, a filter leaves it to the user to open what it found.
constexpr int mostRowsToOpen = 20000;

constexpr int margin = 4;

SceneTree* current = nullptr;

/// Neighbours become one range: the selection's cost goes with the number of ranges, squared.
QItemSelection asSelection(const QModelIndexList& rows)
{
    QItemSelection selection;
    QModelIndex first;
    QModelIndex last;
    for (const QModelIndex& row : rows) {
        if (last.isValid() && row.row() == last.row() + 1 && row.parent() == last.parent()) {
            last = row;
            continue;
        }
        if (first.isValid())
            selection.append(QItemSelectionRange(first, last));
        first = last = row;
    }
    if (first.isValid())
        selection.append(QItemSelectionRange(first, last));
    return selection;
}

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
    _view->setItemDelegate(new NodeDelegate(_view));
    _view->setAccessibleName(tr("Nodes of the scene"));
    _view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _view->setUniformRowHeights(true);
    _view->setIndentation(_view->fontMetrics().height());
    _view->setFrameShape(QFrame::NoFrame);
    _view->setHeaderHidden(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(_filter);
    layout->addWidget(_view);
    setFocusProxy(_view);

    connect(_filter, &QLineEdit::textChanged, this, &SceneTree::applyFilter);
    connect(_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SceneTree::giveSelectionToHost);
    connect(_view, &QTreeView::expanded, this, &SceneTree::fitNames, Qt::QueuedConnection);
    connect(_view->verticalScrollBar(), &QScrollBar::valueChanged, this, &SceneTree::fitNames);
    current = this;
    ktScenegraph::setScrollHandler([](const ktNodePtr& node) { current->scrollTo(node); });
    ktSelectionManager::setChangeHandler([] { current->followSelection(); });
}

SceneTree::~SceneTree()
{
    ktScenegraph::setScrollHandler(nullptr);
    ktSelectionManager::setChangeHandler(nullptr);
    current = nullptr;
}

QSize SceneTree::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 32, fontMetrics().height() * 30};
}

QModelIndex SceneTree::shown(const ktNodePtr& node) const
{
    return _shown->mapFromSource(_model->indexOf(node.operator->()));
}

std::vector<ktNodePtr> SceneTree::openBranches() const
{
    std::vector<ktNodePtr> open;
    QModelIndexList pending{_shown->index(0, 0)};
    while (!pending.isEmpty()) {
        const QModelIndex branch = pending.takeLast();
        if (!_view->isExpanded(branch))
            continue;
        open.emplace_back(_model->nodeAt(_shown->mapToSource(branch)));
        for (int row = 0; row < _shown->rowCount(branch); ++row)
            pending << _shown->index(row, 0, branch);
    }
    return open;
}

void SceneTree::refresh()
{
    const ktNodePtr root = ktScenegraph::getRootNode();
    const bool isSameScene = root && root == ktNodePtr(_model->root());
    const std::vector<ktNodePtr> open = isSameScene ? openBranches() : std::vector<ktNodePtr>{};
    const int top = _view->verticalScrollBar()->value();
    {
        const QScopedValueRollback<bool> guard(_isFollowing, true);
        _model->setRoot(root);
        for (const ktNodePtr& node : open)
            _view->setExpanded(shown(node), true);
        if (!isSameScene)
            _view->expandToDepth(levelsOpen - 1);
    }
    dropLostNodes();
    takeSelectionFromHost();
    if (isSameScene) {
        _view->doItemsLayout();
        _view->verticalScrollBar()->setValue(top);
    }
    fitNames();
}

void SceneTree::dropLostNodes()
{
    const std::vector<ktNodePtr>& selected = ktSelectionManager::selectedNodes();
    std::vector<ktNodePtr> present;
    for (const ktNodePtr& node : selected) {
        if (_model->indexOf(node.operator->()).isValid())
            present.push_back(node);
    }
    if (present.size() == selected.size())
        return;
    const QScopedValueRollback<bool> guard(_isGiving, true);
    ktSelectionManager::selectNodes(present);
}

void SceneTree::applyFilter(const QString& text)
{
    {
        const QScopedValueRollback<bool> guard(_isFollowing, true); // hidden rows stay selected in the host
        _shown->setFilterFixedString(text);
        if (!text.isEmpty() && _model->size() <= mostRowsToOpen)
            _view->expandAll();
    }
    takeSelectionFromHost();
    fitNames();
}

void SceneTree::scrollTo(const ktNodePtr& node)
{
    if (!_model->indexOf(node.operator->()).isValid())
        return;
    if (!shown(node).isValid())
        _filter->clear();
    _view->scrollTo(shown(node), QAbstractItemView::PositionAtCenter);
    fitNames();
}

void SceneTree::followSelection()
{
    if (!_isGiving)
        takeSelectionFromHost();
    emit selectionChanged();
}

void SceneTree::takeSelectionFromHost()
{
    const QScopedValueRollback<bool> guard(_isFollowing, true);
    QModelIndexList rows;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes()) {
        const QModelIndex row = shown(node);
        if (row.isValid())
            rows << row;
    }
    _view->selectionModel()->select(asSelection(rows), QItemSelectionModel::ClearAndSelect);
}

void SceneTree::giveSelectionToHost()
{
    if (_isFollowing)
        return;
    std::vector<ktNodePtr> nodes;
    for (const QModelIndex& index : _view->selectionModel()->selectedIndexes())
        nodes.emplace_back(_model->nodeAt(_shown->mapToSource(index)));
    const QScopedValueRollback<bool> guard(_isGiving, true);
    ktSelectionManager::selectNodes(nodes);
}

/// The column fills the view, and is wider only where a name in sight needs it.
void SceneTree::fitNames()
{
    const auto* view = static_cast<const QAbstractItemView*>(_view);
    _view->header()->setMinimumSectionSize(qMax(0, view->sizeHintForColumn(0)));
}

} // namespace kthost
