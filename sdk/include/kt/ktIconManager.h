#pragma once

#include <kt/Export.h>

#include <string>

class QIcon;

/// The host's icons.
class KT_EXPORT ktIconManager
{
public:
    /// The icon of this name, such as "ModuleAnimation", in a variant, such as "disabled", or the plain one
    /// for an empty variant. A null icon where there is none.
    static QIcon getIcon(const std::string& name, const std::string& variant);
};
