#include "host/vrml/LocalUrl.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace kthost
{
namespace
{

bool isReadableFile(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

/// "urn" of "urn:..."; empty where there is no scheme. A single letter is a drive of another system, not a
/// scheme.
std::string schemeOf(const std::string& url)
{
    const std::size_t colon = url.find(':');
    if (colon == std::string::npos || colon < 2)
        return {};
    const std::string scheme = url.substr(0, colon);
    const bool isScheme = std::all_of(scheme.begin(), scheme.end(), [](unsigned char c) {
        return c < 0x80 && (std::isalnum(c) || c == '+' || c == '-' || c == '.');
    });
    return isScheme ? scheme : std::string();
}

int hexDigit(char c)
{
    return std::isxdigit(static_cast<unsigned char>(c)) ? std::stoi(std::string(1, c), nullptr, 16) : -1;
}

std::string withoutEscapes(const std::string& url)
{
    std::string result;
    for (std::size_t i = 0; i < url.size(); ++i) {
        const bool isEscape =
            url[i] == '%' && i + 2 < url.size() && hexDigit(url[i + 1]) >= 0 && hexDigit(url[i + 2]) >= 0;
        if (isEscape) {
            result += static_cast<char>(hexDigit(url[i + 1]) * 16 + hexDigit(url[i + 2]));
            i += 2;
        } else {
            result += url[i];
        }
    }
    return result;
}

/// The path of "file:path", "file:///path" and "file://host/path".
std::string pathOfFileUrl(const std::string& url)
{
    std::string path = url.substr(5);
    if (path.compare(0, 2, "//") == 0) {
        const std::size_t slash = path.find('/', 2);
        path.erase(0, slash == std::string::npos ? 2 : slash);
    }
    return path;
}

} // namespace

LocalUrl LocalUrl::resolve(const std::string& url, const std::string& folder)
{
    LocalUrl result;
    const std::string scheme = schemeOf(url);
    const bool isFileUrl = scheme == "file" || scheme == "FILE";
    std::string name = isFileUrl ? pathOfFileUrl(url) : url;

    const auto found = [&](const std::string& candidate) {
        // A name with a zero byte would be looked up by a part of itself.
        if (candidate.empty() || candidate.find('\0') != std::string::npos)
            return false;
        const std::string path = (std::filesystem::path(folder) / candidate).string();
        if (isReadableFile(path))
            result.path = path;
        return !result.path.empty();
    };

    if (!scheme.empty() && !isFileUrl) {
        result.problem = "'" + url + "' is not on this machine, and nothing is fetched from elsewhere";
        return result;
    }
    // A file may have "#" or "%20" in its name, so the name as it stands comes first.
    if (found(name))
        return result;
    const std::size_t hash = name.rfind('#');
    if (hash != std::string::npos) {
        result.fragment = name.substr(hash + 1);
        name.erase(hash);
    }
    if (!found(name) && !found(withoutEscapes(name)))
        result.problem = "there is no file '" + url + "'";
    return result;
}

} // namespace kthost
