#pragma once

class SoNode;

namespace kthost
{

/// Does the scene bring a background of its own?
bool hasBackground(SoNode* scene);

/// What shows behind a scene without a background: a calm grey, lighter towards the horizon. A node without references.
SoNode* makeDefaultBackground();

/// VRML97 shows the first of a scene's backgrounds, the renderer the last one it comes across. Gives what to draw after
/// the scene for the first one to show, a node without references; null where there is nothing to do.
SoNode* makeFirstBackgroundWin(SoNode* scene);

} // namespace kthost
