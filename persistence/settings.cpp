#include "module/ktAnimation.h"
#include "persistence/getFromMessage.h"
#include "persistence/ktHotkey.h"

#include <utility>
#include <vector>

namespace
{

const char* const settingsKey = "Animations";

/// name, comment, start hotkey, stop hotkey
constexpr std::size_t stringsPerAnimation = 4;

/// As UTF-8, up to the first zero byte: the strings are read back as texts that end there.
std::string saved(const QString& text)
{
    return text.toUtf8().constData();
}

QString restored(const std::string& text)
{
    return QString::fromUtf8(text.c_str());
}

} // namespace

void ktAnimation::animationSave(ktMessage& project)
{
    std::vector<std::string> strings;
    for (const ktAnimationInfo& animation : _animations) {
        if (animation.name.isNull())
            continue;
        for (const QString* text :
             {&animation.name, &animation.comment, &animation.startHotkey, &animation.stopHotkey})
            strings.push_back(saved(*text));
    }
    project.set(settingsKey, strings, true);
}

void ktAnimation::animationLoad(ktMessage& project)
{
    std::vector<std::string> strings;
    if (!getFromMessage<std::vector<std::string>>(project, settingsKey, strings))
        return;
    _animations.clear();
    _current = nullptr;

    const std::size_t groups = strings.size() / stringsPerAnimation;
    for (std::size_t i = 0; i < groups; ++i) {
        const std::string* group = &strings[i * stringsPerAnimation];
        if (findAnimation(group[0].c_str()))
            continue;
        ktAnimationInfo animation; // joins the registry when it is whole
        animation.name = restored(group[0]);
        animation.comment = restored(group[1]);
        animation.startHotkey = restored(group[2]);
        animation.stopHotkey = restored(group[3]);
        ktHotkey::mapHotkey(animation.startHotkey, animation.startKey, animation.startModifier);
        ktHotkey::mapHotkey(animation.stopHotkey, animation.stopKey, animation.stopModifier);
        _animations.push_back(std::move(animation));
    }
    animationDisplayList();
    animationDisplayProperties();
}
