#pragma once

#include <QByteArray>
#include <QStringList>

namespace kthost
{

/// Where in a text something stands, as editors count.
struct JsonPlace
{
    int line = 1;   ///< From 1.
    int column = 1; ///< From 1, in bytes.

    /// Of the byte at `offset`; of the end where the text is shorter.
    static JsonPlace ofOffset(const QByteArray& text, int offset);

    /// Of the value at `path` (keys, "[3]" for an entry of an array) in a valid document. Where a part of the
    /// path is not there, of the value it is looked for in.
    static JsonPlace ofPath(const QByteArray& document, const QStringList& path);
};

} // namespace kthost
