#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace kthost
{

/// A project file could not be read or written. what() is one line: the file, the line and column where there
/// are any, and why.
class ProjectError : public std::runtime_error
{
public:
    explicit ProjectError(const QString& line) : std::runtime_error(line.toStdString()) {}
};

/// A value of a document is not what it has to be; for within the reading, which adds file and line.
struct WrongValue
{
    QStringList path; ///< Keys from the document down, "[3]" for an entry of an array.
    QString why;
};

} // namespace kthost
