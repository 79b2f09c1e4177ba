#pragma once

#include <kt/Export.h>

class ktMessage;

/// The host's project. GUI thread.
class KT_EXPORT ktFileIO
{
public:
    /// The project: what modules store in it with ktMessage::set() travels with the project's file.
    /// While message 8192 is delivered its attribute "_loading" (bool) is true for a load and false for a
    /// save. Always the same object.
    static ktMessage& getProject();

    /// For the host: a new, empty project.
    static void clearProject();
};
