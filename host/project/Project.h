#pragma once

#include <kt/ktMessage.h>

#include <QJsonObject>
#include <QString>

namespace kthost
{

/// What a project file says. Plain value.
struct Project
{
    /// The scene's file, relative to the project's folder, with '/' between folders; see ScenePath. Empty for
    /// a project without a scene.
    QString scene;

    /// The scene is meant to be outside of the project's folder.
    bool isSceneOutside = false;

    /// Of the types that AttributeValue knows.
    ktMessage::Attributes attributes;

    // What this version does not know and hands on as it is.
    QJsonObject unknownKeys;       ///< Of the document.
    QJsonObject unknownAttributes; ///< Whole entries, of other types; by their names in the file.
    QJsonObject unknownParts;      ///< What entries of known types have beside type and value; by the same.
};

} // namespace kthost
