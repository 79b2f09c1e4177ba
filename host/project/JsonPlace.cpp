#include "host/project/JsonPlace.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstring>

namespace kthost
{
namespace
{

/// Walks over a document that a parser has found valid, value by value.
class Scanner
{
public:
    explicit Scanner(const QByteArray& text) : _text(text) {}

    /// The offset of the value at `path`.
    int find(const QStringList& path)
    {
        toNext();
        for (const QString& part : path) {
            const int begin = _at;
            if (!enter(part))
                return begin;
        }
        return _at;
    }

private:
    char here() const { return _at < _text.size() ? _text.at(_at) : '\0'; }

    /// To the next byte that means something.
    void toNext()
    {
        while (_at < _text.size() && std::strchr(" \t\r\n,:\xEF\xBB\xBF", here()))
            ++_at;
    }

    /// From the beginning of an object or array to the value of `part`; of several of one key to the last
    /// one, which is the one that counts.
    bool enter(const QString& part)
    {
        const bool isObject = here() == '{';
        if (!isObject && here() != '[')
            return false;
        ++_at;
        int found = -1;
        for (int index = 0;; ++index) {
            toNext();
            if (here() == '\0' || here() == '}' || here() == ']')
                break;
            const QString name = isObject ? key() : QStringLiteral("[%1]").arg(index);
            if (name == part)
                found = _at;
            skipValue();
        }
        _at = found;
        return found >= 0;
    }

    /// The key at hand; goes on to its value.
    QString key()
    {
        const int begin = _at;
        skipString();
        const QByteArray quoted = _text.mid(begin, _at - begin);
        toNext();
        return QJsonDocument::fromJson('[' + quoted + ']').array().at(0).toString();
    }

    void skipString()
    {
        for (++_at; here() != '"' && _at < _text.size(); ++_at)
            _at += here() == '\\' ? 1 : 0;
        ++_at;
    }

    void skipValue()
    {
        int depth = 0;
        do {
            toNext();
            const char first = here();
            if (first == '"') {
                skipString();
            } else if (first == '{' || first == '[') {
                ++depth;
                ++_at;
            } else if (first == '}' || first == ']') {
                --depth;
                ++_at;
            } else {
                while (_at < _text.size() && !std::strchr(" \t\r\n,:{}[]", here()))
                    ++_at;
            }
        } while (depth > 0 && _at < _text.size());
    }

    const QByteArray& _text;
    int _at = 0;
};

} // namespace

JsonPlace JsonPlace::ofOffset(const QByteArray& text, int offset)
{
    const int end = std::clamp(offset, 0, text.size());
    JsonPlace place;
    place.line += static_cast<int>(std::count(text.begin(), text.begin() + end, '\n'));
    place.column = end - (end > 0 ? text.lastIndexOf('\n', end - 1) : -1);
    return place;
}

JsonPlace JsonPlace::ofPath(const QByteArray& document, const QStringList& path)
{
    return ofOffset(document, Scanner(document).find(path));
}

} // namespace kthost
