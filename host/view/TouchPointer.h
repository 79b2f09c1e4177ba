#pragma once

class SoEvent;
class SoMouseButtonEvent;
class SoSceneManager;

namespace kthost
{

/// Lets the mouse press what the scene's TouchSensors make touchable (VRML97 6.51); all else is navigation.
class TouchPointer
{
public:
    /// Hands the event to the scene where it belongs to a touch: a press of the left button on something
    /// touchable, and all of the mouse up to its release. False where it is none; the scene then has not seen
    /// it.
    bool handle(const SoEvent& event, SoSceneManager& scene);

private:
    static bool isOnTouchable(const SoMouseButtonEvent& event, SoSceneManager& scene);

    bool _isTouching = false;
};

} // namespace kthost
