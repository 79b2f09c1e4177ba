#pragma once

#include "host/vrml/CoinLibrary.h"
#include "host/vrml/CoinRef.h"
#include "host/vrml/SceneReader.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/VRMLnodes/SoVRMLInterpolator.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoSFFloat.h>

#include <QByteArray>

#include <string>

namespace kt::test
{

/// The scene that VRML97 text, without its header line, describes; null where it is not VRML97.
inline kthost::CoinRef<SoVRMLGroup> sceneOf(const QByteArray& text)
{
    kthost::CoinLibrary::init();
    const QByteArray whole = "#VRML V2.0 utf8\n" + text;
    SoInput input;
    input.setBuffer(whole.constData(), static_cast<std::size_t>(whole.size()));
    return kthost::CoinRef<SoVRMLGroup>(SoDB::readAllVRML(&input));
}

/// One of the examples' scenes, as the host reads it.
inline kthost::SceneReading exampleScene(const char* name)
{
    return kthost::SceneReader::read(std::string(KT_EXAMPLES_DIR "/scenes/") + name);
}

/// The node of a scene of sceneOf() with this name; null where there is none.
template <class Node>
Node* named(const kthost::CoinRef<SoVRMLGroup>& scene, const char* name)
{
    SoSearchAction search;
    search.setName(name);
    search.setSearchingAll(TRUE);
    search.apply(scene.get());
    return search.getPath() ? static_cast<Node*>(search.getPath()->getTail()) : nullptr;
}

/// Sends an example's interpolator its fraction.
inline void sendFraction(const kthost::SceneReading& scene, const char* interpolator, float fraction)
{
    SoSearchAction search;
    search.setType(SoVRMLInterpolator::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.setSearchingAll(TRUE);
    search.apply(scene.root.get());
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
        SoNode* node = search.getPaths()[i]->getTail();
        if (scene.names.original(node->getName().getString()) != interpolator)
            continue;
        auto* field = static_cast<SoSFFloat*>(node->getField("set_fraction"));
        field->enableConnection(FALSE);
        field->setValue(fraction);
    }
}

} // namespace kt::test
