#include "host/vrml/SceneHeight.h"

#include <algorithm>
#include <utility>

namespace kthost
{
namespace
{

SceneHeight::Height sum(const SceneHeight::Height& a, const SceneHeight::Height& b)
{
    return {std::min(a.nodes + b.nodes, SceneHeight::endless),
            std::min(a.externals + b.externals, SceneHeight::endless)};
}

} // namespace

void SceneHeight::raise(Height& height, const Height& other)
{
    height.nodes = std::max(height.nodes, other.nodes);
    height.externals = std::max(height.externals, other.externals);
}

void SceneHeight::openNode(int depth, std::string_view kind, const std::string& standIn)
{
    // An instance is as high as the body, and what its fields hold may stand at the body's lowest place.
    const auto body = _bodies.find(kind);
    const Height inside = body == _bodies.end() ? Height() : body->second;
    _open.push_back({depth, sum({1, 0}, inside), {}, standIn, {}, {}});
}

void SceneHeight::openBody(int depth, std::string_view prototype)
{
    // An instance of a prototype in its own body has no end.
    Height& body = _bodies[prototype];
    _open.push_back({depth, {1, 0}, {}, {}, prototype, body});
    body = {endless, 0};
}

void SceneHeight::declareExternal(std::string_view prototype)
{
    raise(_bodies[prototype], {0, 1});
}

void SceneHeight::close(int depth)
{
    while (!_open.empty() && _open.back().depth >= depth)
        closeLast();
}

void SceneHeight::closeLast()
{
    const Level level = std::move(_open.back());
    _open.pop_back();
    const Height whole = sum(level.own, level.below);
    raise(_open.empty() ? _top : _open.back().below, whole);
    if (!level.standIn.empty())
        _named[level.standIn] = whole;
    if (level.prototype.empty())
        return;
    Height& body = _bodies[level.prototype];
    body = level.before;
    raise(body, whole);
}

void SceneHeight::use(const std::string& standIn)
{
    // A node that is still open, or yet to come, makes a loop if it makes anything.
    const auto named = _named.find(standIn);
    const Height used = named == _named.end() ? Height{endless, 0} : named->second;
    raise(_open.empty() ? _top : _open.back().below, used);
}

SceneHeight::Height SceneHeight::height() const
{
    Height all = _top;
    // Brackets that nobody closes.
    Height unclosed;
    for (auto level = _open.rbegin(); level != _open.rend(); ++level) {
        raise(unclosed, level->below);
        unclosed = sum(unclosed, level->own);
    }
    raise(all, unclosed);
    return all;
}

} // namespace kthost
