#pragma once

#include <QString>

/// The record of one animation: what the user adds to a time sensor of the scene.
/// Plain value; the scene keeps the running state.
struct ktAnimationInfo
{
    /// Matches no key code, so a fresh record is never triggered.
    static constexpr int NoKey = -1;

    QString name; ///< The node's name: the key, compared exactly.
    QString comment;
    QString startHotkey;   ///< As text, such as "Shift-Ctrl A"; see ktHotkey.
    int startKey = NoKey;  ///< Qt key code decoded from startHotkey.
    int startModifier = 0; ///< Qt keyboard modifiers decoded from startHotkey.
    QString stopHotkey;
    int stopKey = NoKey;
    int stopModifier = 0;
};
