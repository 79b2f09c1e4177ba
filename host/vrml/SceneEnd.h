#pragma once

#include "host/vrml/CoinRef.h"

#include <Inventor/VRMLnodes/SoVRMLGroup.h>

#include <cstdint>
#include <string>

namespace kthost
{

class SceneGuard;

/// Sees to a scene's end where its file is checked by a SceneGuard, which also lets go of what it read, while
/// the host goes on with it. The scene goes with this object at the earliest, and a scene that the guard's
/// process did not survive the end of stays in memory for good.
///
/// The guard must outlive this, or its verdict must have been asked for before.
class SceneEnd
{
public:
    SceneEnd() = default;

    /// `name` stands in front of the problem.
    SceneEnd(CoinRef<SoVRMLGroup> root, SceneGuard& guard, std::string name);
    ~SceneEnd();
    SceneEnd(SceneEnd&& other) noexcept;
    SceneEnd& operator=(SceneEnd&& other) noexcept;
    SceneEnd(const SceneEnd&) = delete;
    SceneEnd& operator=(const SceneEnd&) = delete;

    /// Waits for the end of the check. One line on why the scene must not be opened; empty where it may.
    const std::string& problem();

private:
    CoinRef<SoVRMLGroup> _root;
    SceneGuard* _guard = nullptr; ///< Null once it was asked.
    std::uint64_t _check = 0;
    std::string _name;
    std::string _problem;
};

} // namespace kthost
