#pragma once

#include <string>

namespace kthost
{

/// A URL of a scene file, looked up in the local file system and nowhere else.
struct LocalUrl
{
    std::string path;     ///< Of an existing file; empty where there is none.
    std::string fragment; ///< What follows "#"; empty where nothing does.
    std::string problem;  ///< Why there is no path; empty where there is one.

    /// `url` is taken relative to `folder`. "file:" URLs and percent-escapes are understood; every other
    /// scheme is refused without a look-up of any kind.
    static LocalUrl resolve(const std::string& url, const std::string& folder);
};

} // namespace kthost
