#include "host/vrml/SceneEnd.h"

#include "host/vrml/SceneGuard.h"

#include <utility>
#include <vector>

namespace kthost
{

SceneEnd::SceneEnd(CoinRef<SoVRMLGroup> root, SceneGuard& guard, std::string name)
    : _root(std::move(root)), _guard(&guard), _check(guard.number()), _name(std::move(name))
{
}

SceneEnd::SceneEnd(SceneEnd&& other) noexcept
{
    *this = std::move(other);
}

SceneEnd& SceneEnd::operator=(SceneEnd&& other) noexcept
{
    std::swap(_root, other._root);
    std::swap(_guard, other._guard);
    std::swap(_check, other._check);
    std::swap(_name, other._name);
    std::swap(_problem, other._problem);
    return *this;
}

SceneEnd::~SceneEnd()
{
    static auto& kept = *new std::vector<CoinRef<SoVRMLGroup>>; // for good, and after everything static
    if (_root && !problem().empty())
        kept.push_back(std::move(_root));
}

const std::string& SceneEnd::problem()
{
    if (SceneGuard* const guard = std::exchange(_guard, nullptr)) {
        // The verdict on another file says nothing of this one.
        const bool isOfThis = guard->number() == _check;
        const std::string verdict = isOfThis ? guard->verdict() : "its check was left before its end";
        _problem = verdict.empty() ? std::string() : _name + ": " + verdict;
    }
    return _problem;
}

} // namespace kthost
