#pragma once

#include <cstdint>

namespace osg
{

/// A set of fields of one container, a bit a field. Each container class names its own bits as constants
/// that end in `FieldMask`.
using FieldMask = std::uint32_t;

/// Who made a change, as FieldContainer::changed() is told.
using ChangeOrigin = std::uint32_t;

/// The origin of every edit made from outside the container: by a user, a plug-in, a script, the frame loop.
constexpr ChangeOrigin ExternalChange = 1;

} // namespace osg
