#pragma once

class SoNode;

namespace kthost
{

/// Does the scene bring a background of its own?
bool hasBackground(SoNode* scene);

/// What shows behind a scene without a background: a dark calm grey, lighter towards the horizon. A node
/// without references.
SoNode* makeDefaultBackground();

/// The scene's first background where it has several, else null: VRML97 shows the first one, the renderer the
/// last one that it comes across. So this one is to be drawn once more after the scene; it covers only what
/// lies behind all shapes.
SoNode* hiddenFirstBackground(SoNode* scene);

} // namespace kthost
