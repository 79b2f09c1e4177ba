#include "host/view/SelectionMarker.h"
#include "host/view/SceneView.h"
#include "tests/view/SceneText.h"

#include <Inventor/VRMLnodes/SoVRMLTransform.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <gtest/gtest.h>

using kt::test::named;
using kt::test::sceneOf;

namespace
{

class SelectionMarkerTest : public testing::Test
{
protected:
    void show(const QByteArray& text)
    {
        scene = sceneOf(text);
        view.setScene(scene.get());
    }

    SoNode* node(const char* name) { return named<SoNode>(scene, name); }

    kthost::SceneView view;
    kthost::SelectionMarker marker{view};
    kthost::CoinRef<SoVRMLGroup> scene;
};

} // namespace

TEST_F(SelectionMarkerTest, MarksEachPlaceWhereANodeIsDrawn)
{
    show("DEF A Transform { children DEF S Shape { geometry Box {} } }"
         "Transform { translation 5 0 0 children USE A }");

    marker.mark({node("A")});
    EXPECT_EQ(marker.count(), 2);

    marker.mark({});
    EXPECT_EQ(marker.count(), 0);
}

TEST_F(SelectionMarkerTest, WhatHasNoExtentGetsNoMark)
{
    show("DEF L PointLight {} DEF G Group {} Shape { geometry Box {} }");

    marker.mark({node("L"), node("G")});

    EXPECT_EQ(marker.count(), 0);
}

TEST_F(SelectionMarkerTest, NodesOfAnotherSceneGetNoMark)
{
    show("DEF A Shape { geometry Box {} }");
    const auto other = scene;
    SoNode* stranger = node("A");
    show("Shape { geometry Sphere {} }");

    marker.mark({stranger});

    EXPECT_EQ(marker.count(), 0);
}

TEST_F(SelectionMarkerTest, ChangesThePictureOnlyWhenWhatItMarksHasMoved)
{
    show("DEF A Transform { children Shape { geometry Box {} } }");
    marker.mark({node("A")});
    int changes = 0;
    SoNodeSensor watch([](void* count, SoSensor*) { ++*static_cast<int*>(count); }, &changes);
    watch.setPriority(0);
    watch.attach(view.overlay());

    marker.update();
    EXPECT_EQ(changes, 0);

    static_cast<SoVRMLTransform*>(node("A"))->translation.setValue(1.0F, 0.0F, 0.0F);
    marker.update();
    EXPECT_GT(changes, 0);
}

TEST_F(SelectionMarkerTest, LeavesTheOverlayAsItWas)
{
    const int before = view.overlay()->getNumChildren();
    {
        const kthost::SelectionMarker another(view);
        EXPECT_EQ(view.overlay()->getNumChildren(), before + 1);
    }
    EXPECT_EQ(view.overlay()->getNumChildren(), before);
}
