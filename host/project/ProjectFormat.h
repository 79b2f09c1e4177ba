#pragma once

#include "host/project/Project.h"

#include <QByteArray>

namespace kthost
{

/// A project as the JSON document that is its file; docs/projects.md describes it.
class ProjectFormat
{
public:
    static constexpr int version = 1;

    /// Ends with a line end.
    static QByteArray toJson(const Project& project);

    /// Throws ProjectError, with `file` as the file's name, for a document that is broken or newer. Never
    /// looks for the scene.
    static Project fromJson(const QByteArray& document, const QString& file);
};

} // namespace kthost
