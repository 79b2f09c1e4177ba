#pragma once

#include "tests/model/Steps.h"

#include <rapidcheck.h>

namespace kt::test
{

/// Any sequence, by chance. A failing one is cut down: fewer steps, each with the first of what it can have.
rc::Gen<Sequence> anySequence();

/// The scene that a sequence begins with: a sensor of each name.
SceneFile firstScene();

} // namespace kt::test
