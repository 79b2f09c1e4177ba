#pragma once

#include "host/project/Project.h"

namespace kthost
{

/// Project files. A file is replaced as a whole: at any moment, killed or out of disk, the one that was there
/// or the new one is there.
class ProjectFile
{
public:
    /// Larger files are neither read nor written, in bytes.
    static constexpr qint64 sizeLimit = 64 * 1024 * 1024;

    /// Whether a file of this name is a project, not a scene: its name ends in ".ktproj".
    static bool isProject(const QString& file);

    /// Throws ProjectError for a file that cannot be read or is broken, newer or over the limit.
    static Project read(const QString& file);

    /// Returns when the file is on the disk. Throws ProjectError where it cannot be written; the old one is
    /// then as it was. A link is followed. What is no regular file is refused, and so is a name by which the
    /// file would not be known as a project.
    static void write(const Project& project, const QString& file);
};

} // namespace kthost
