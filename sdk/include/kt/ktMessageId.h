#pragma once

#include <cstdint>

/// The ids of the messages that the host delivers to ktModuleBase::receivedMessage().
namespace ktMessageId
{

/// The scene was cleared; its nodes are gone.
constexpr std::uint32_t SceneCleared = 0x0010;

/// The project is being loaded or saved: its attribute "_loading" (bool, see ktFileIO::getProject) says
/// which.
constexpr std::uint32_t Project = 0x2000;

/// Nodes of the scene were added, removed or renamed.
constexpr std::uint32_t SceneChanged = 0x8000;

} // namespace ktMessageId
