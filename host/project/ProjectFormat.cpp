#include "host/project/ProjectFormat.h"

#include "host/project/AttributeValue.h"
#include "host/project/JsonPlace.h"
#include "host/project/ProjectError.h"
#include "host/project/ScenePath.h"

#include <QJsonDocument>

#ifdef KT_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace kthost
{
namespace
{

const QLatin1String versionKey("formatVersion");
const QLatin1String sceneKey("scene");
const QLatin1String outsideKey("sceneIsOutside");
const QLatin1String attributesKey("attributes");
const QLatin1String typeKey("type");
const QLatin1String valueKey("value");

/// Begins the name of an attribute whose own bytes are no text, or begin so themselves.
const QLatin1String encodedName("base64:");

QString nameToText(const std::string& name)
{
    const QString text = AttributeValue::bytesToJson(name).toString();
    const bool isText = name.empty() || (!text.isEmpty() && !text.startsWith(encodedName));
    return isText ? text : encodedName + QString::fromLatin1(QByteArray::fromStdString(name).toBase64());
}

std::string nameFromText(const QString& text)
{
    if (!text.startsWith(encodedName))
        return AttributeValue::bytesFromJson(text);
    return AttributeValue::bytesFromJson(
        QJsonObject{{QStringLiteral("base64"), text.mid(encodedName.size())}});
}

QJsonDocument parsedJson(const QByteArray& bytes, QJsonParseError& error)
{
#ifdef KT_LOOKS_FOR_LEAKS
    // Qt's reader loses some bytes where a document breaks off within an object.
    const __lsan::ScopedDisabler notOurs;
#endif
    return QJsonDocument::fromJson(bytes, &error);
}

void checkVersion(const QJsonValue& version)
{
    const double number = version.toDouble(0.0);
    if (number < 1.0 || number != version.toInt())
        throw WrongValue{{versionKey}, QStringLiteral("is no format version")};
    if (version.toInt() > ProjectFormat::version)
        throw WrongValue{{versionKey},
                         QStringLiteral("is %1, and this version reads up to %2: a newer one wrote the file")
                             .arg(version.toInt())
                             .arg(ProjectFormat::version)};
}

void readScene(Project& project, QJsonObject& document)
{
    const QJsonValue outside = document.take(outsideKey);
    if (!outside.isUndefined() && !outside.isBool())
        throw WrongValue{{outsideKey}, QStringLiteral("is neither true nor false")};
    project.isSceneOutside = outside.toBool();
    const QJsonValue scene = document.take(sceneKey);
    if (scene.isUndefined())
        return;
    if (!scene.isString())
        throw WrongValue{{sceneKey}, QStringLiteral("is no text")};
    project.scene = scene.toString();
    const QString why = ScenePath::refusal(project.scene, project.isSceneOutside);
    if (!why.isEmpty())
        throw WrongValue{{sceneKey}, why};
}

void readAttribute(Project& project, const QString& text, const QJsonValue& json)
{
    if (!json.isObject())
        throw WrongValue{{}, QStringLiteral("is no object with \"type\" and \"value\"")};
    QJsonObject parts = json.toObject();
    if (!parts.value(typeKey).isString())
        throw WrongValue{{typeKey}, QStringLiteral("is no text")};
    const std::string name = nameFromText(text);
    if (name == "_loading")
        throw WrongValue{{}, QStringLiteral("is the host's own and never in a file")};
    const QString type = parts.take(typeKey).toString();
    const QJsonValue value = parts.take(valueKey);
    std::optional<boost::any> known;
    try {
        known = AttributeValue::fromJson(type, value);
    } catch (WrongValue& wrong) {
        wrong.path.prepend(valueKey);
        throw;
    }
    if (!known) {
        project.unknownAttributes.insert(text, json);
        return;
    }
    if (!project.attributes.emplace(name, *known).second)
        throw WrongValue{{}, QStringLiteral("is there a second time, under another spelling")};
    if (!parts.isEmpty())
        project.unknownParts.insert(text, parts);
}

void readAttributes(Project& project, QJsonObject& document)
{
    const QJsonValue value = document.take(attributesKey);
    if (!value.isUndefined() && !value.isObject())
        throw WrongValue{{attributesKey}, QStringLiteral("is no object")};
    const QJsonObject attributes = value.toObject();
    for (auto entry = attributes.begin(); entry != attributes.end(); ++entry) {
        try {
            readAttribute(project, entry.key(), entry.value());
        } catch (WrongValue& wrong) {
            wrong.path = QStringList{attributesKey, entry.key()} + wrong.path;
            throw;
        }
    }
}

/// Qt's reader drops a byte order mark that a text begins with, but not an escaped one.
QByteArray withMarksEscaped(QByteArray document)
{
    const QByteArray mark = QByteArrayLiteral("\xEF\xBB\xBF");
    const int begin = document.startsWith(mark) ? mark.size() : 0; // the file's own is no part of a text
    if (document.indexOf(mark, begin) < 0)
        return document;
    return document.left(begin) + document.mid(begin).replace(mark, QByteArrayLiteral("\\ufeff"));
}

/// As it goes into an error: on one line, and not endless.
QString shown(QStringList path)
{
    constexpr int longest = 200;
    QString text = path.join(QLatin1Char('.')).replace(QLatin1String(".["), QLatin1String("["));
    for (QChar& character : text) {
        if (!character.isPrint())
            character = QLatin1Char('?');
    }
    return text.size() > longest ? text.left(longest) + QLatin1String("...") : text;
}

ProjectError errorAt(const QString& file, const JsonPlace& place, const QString& why)
{
    return ProjectError(file + QStringLiteral(":%1:%2: ").arg(place.line).arg(place.column) + why);
}

} // namespace

QByteArray ProjectFormat::toJson(const Project& project)
{
    QJsonObject attributes = project.unknownAttributes;
    for (const auto& [name, value] : project.attributes) {
        const QString text = nameToText(name);
        QJsonObject entry = project.unknownParts.value(text).toObject();
        entry.insert(typeKey, AttributeValue::typeOf(value));
        entry.insert(valueKey, AttributeValue::toJson(value));
        attributes.insert(text, entry);
    }
    QJsonObject document = project.unknownKeys;
    document.insert(versionKey, version);
    if (!project.scene.isEmpty())
        document.insert(sceneKey, project.scene);
    if (project.isSceneOutside)
        document.insert(outsideKey, true);
    document.insert(attributesKey, attributes);
    return withMarksEscaped(QJsonDocument(document).toJson());
}

Project ProjectFormat::fromJson(const QByteArray& document, const QString& file)
{
    const QByteArray bytes = withMarksEscaped(document);
    QJsonParseError error;
    const QJsonDocument parsed = parsedJson(bytes, error);
    if (error.error != QJsonParseError::NoError)
        throw errorAt(file, JsonPlace::ofOffset(bytes, error.offset), error.errorString());
    try {
        if (!parsed.isObject())
            throw WrongValue{{}, QStringLiteral("the document is no object")};
        Project project;
        QJsonObject keys = parsed.object();
        checkVersion(keys.take(versionKey));
        readScene(project, keys);
        readAttributes(project, keys);
        project.unknownKeys = keys;
        return project;
    } catch (const WrongValue& wrong) {
        const QString where = wrong.path.isEmpty() ? QString() : shown(wrong.path) + QLatin1Char(' ');
        throw errorAt(file, JsonPlace::ofPath(bytes, wrong.path), where + wrong.why);
    }
}

} // namespace kthost
