#pragma once

#include <QByteArray>
#include <QString>

namespace kthost
{

/// Files that are there whole or not at all.
class WholeFile
{
public:
    /// Whether all that was written to an open file is on its disk: some tell only then that they are full.
    /// True, too, for files that cannot be told so. errno says why not.
    static bool isOnDisk(int descriptor);

    /// Writes a file, in place of one that may be there: at any moment, killed, ended by a signal or out of
    /// disk, either the old or the new one is there whole. The answer is empty, or says in one line why it
    /// could not be written; what was there then stays. Only regular files are replaced, and links to them
    /// stay links.
    static QString write(const QString& file, const QByteArray& bytes);
};

} // namespace kthost
