#pragma once

#include <QByteArray>
#include <QString>

namespace kthost
{

/// Files that are there whole or not at all.
class WholeFile
{
public:
    /// Writes a file, in place of one that may be there: at any moment, killed, ended by a signal or out of
    /// disk, either the old or the new one is there whole. The answer is empty, or says in one line why it
    /// could not be written; what was there then stays. Only regular files are replaced, and links to them
    /// stay links.
    static QString write(const QString& file, const QByteArray& bytes);
};

} // namespace kthost
