// The scene tree's answer to an edit of the scene, to a selection and to a filter, in scenes of growing size.
#include "host/app/window/SceneTree.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <osg/Name.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QTreeView>

namespace
{

constexpr int nodesPerGroup = 100;

osg::NodePtr named(const std::string& name)
{
    const osg::NodePtr node = osg::Node::create();
    node->addAttachment(osg::Name::create(name));
    return node;
}

/// A shown tree of `count` nodes in groups, with all branches open or all but the first levels folded.
struct ShownTree
{
    ShownTree(int count, bool isOpen)
    {
        const osg::NodePtr root = named("root");
        for (int i = 0; i < count; ++i) {
            if (i % nodesPerGroup == 0)
                root->addChild(named("group" + std::to_string(i)));
            root->getChild(root->getNChildren() - 1)->addChild(named("node" + std::to_string(i)));
        }
        ktScenegraph::setRootNode(root);
        tree.refresh();
        if (isOpen)
            tree.view().expandAll();
        else
            tree.view().collapseAll();
        tree.view().expand(tree.view().model()->index(0, 0));
        tree.resize(230, 600);
        tree.show();
    }

    ~ShownTree()
    {
        ktSelectionManager::selectNodes({});
        ktScenegraph::setRootNode({});
    }

    kthost::SceneTree tree;
};

void refreshFolded(benchmark::State& state)
{
    ShownTree shown(static_cast<int>(state.range(0)), false);
    for (auto unused : state) {
        static_cast<void>(unused);
        shown.tree.refresh();
    }
}

void refreshOpen(benchmark::State& state)
{
    ShownTree shown(static_cast<int>(state.range(0)), true);
    for (auto unused : state) {
        static_cast<void>(unused);
        shown.tree.refresh();
    }
}

void selectThousand(benchmark::State& state)
{
    const ShownTree shown(static_cast<int>(state.range(0)), true);
    std::vector<std::string> names;
    for (int i = 0; i < 1000; ++i)
        names.push_back("node" + std::to_string(i * 9));
    const std::vector<ktNodePtr> nodes = ktScenegraph::findNodes(names);
    for (auto unused : state) {
        static_cast<void>(unused);
        ktSelectionManager::selectNodes(nodes);
    }
}

void filter(benchmark::State& state)
{
    ShownTree shown(static_cast<int>(state.range(0)), false);
    for (auto unused : state) {
        static_cast<void>(unused);
        shown.tree.filter().setText("node99");
        shown.tree.filter().clear();
    }
}

} // namespace

BENCHMARK(refreshFolded)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(refreshOpen)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(selectThousand)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(filter)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
