// The panel's list when the scene has changed: the built plug-in rebuilds it, and beside it a bare list is
// cleared and filled with the same rows. The scan of the scene, which comes before, is measured on its own.
#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>

#include <benchmark/benchmark.h>

#include <QListWidget>

namespace
{

osg::NodePtr makeScene(int animations)
{
    const osg::NodePtr root = osg::Node::create();
    for (int i = 0; i < animations; ++i) {
        const osg::NodePtr node = osg::Node::create(osg::TimeSensor::create());
        node->addAttachment(osg::Name::create("Animation " + std::to_string(i)));
        root->addChild(node);
    }
    return root;
}

void tellOfChange()
{
    ktMessage message(ktMessageId::SceneChanged);
    ktController::deliver(message);
}

ktModuleBase& module()
{
    return *ktModuleBase::modules().at(0);
}

/// The scene is open and its animations are listed for as long as this lives.
struct OpenScene
{
    explicit OpenScene(int animations)
    {
        ktScenegraph::setRootNode(makeScene(animations));
        tellOfChange();
    }
    ~OpenScene()
    {
        ktScenegraph::setRootNode({});
        ktMessage message(ktMessageId::SceneCleared);
        ktController::deliver(message);
    }
};

QListWidget& listOfPanel()
{
    return *module().getWidget()->findChild<QListWidget*>("_animationList");
}

void bareList(benchmark::State& state)
{
    QListWidget list;
    list.resize(listOfPanel().size());
    list.show();
    QStringList names;
    for (int i = 0; i < state.range(0); ++i)
        names << QStringLiteral("Animation %1").arg(i);
    for (auto unused : state) {
        static_cast<void>(unused);
        list.clear();
        for (const QString& name : names)
            (new QListWidgetItem(&list))->setText(name);
        list.viewport()->repaint(); // as the panel does
    }
}

void panelList(benchmark::State& state)
{
    const OpenScene scene(static_cast<int>(state.range(0)));
    if (listOfPanel().count() != state.range(0)) {
        state.SkipWithError("the list does not show the scene's animations");
        return;
    }
    for (auto unused : state) {
        static_cast<void>(unused);
        QMetaObject::invokeMethod(&module(), "animationDisplayList", Qt::DirectConnection);
    }
}

void sceneChange(benchmark::State& state)
{
    const OpenScene scene(static_cast<int>(state.range(0)));
    for (auto unused : state) {
        static_cast<void>(unused);
        tellOfChange();
    }
}

} // namespace

BENCHMARK(bareList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(panelList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(sceneChange)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
