#include "host/files/WholeSettings.h"

#include "host/files/EndSignals.h"
#include "host/files/WholeFile.h"

#include <QDataStream>
#include <QFileDevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

namespace kthost
{
namespace
{

const QLatin1String bytesKey("bytes");
const QLatin1String streamKey("stream");
constexpr auto streamVersion = QDataStream::Qt_5_15;

QJsonObject inBase64(const QLatin1String& key, const QByteArray& bytes)
{
    return {{key, QString::fromLatin1(bytes.toBase64())}};
}

QJsonValue toJson(const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QStringList:
        return QJsonArray::fromStringList(value.toStringList());
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::QByteArray:
        return inBase64(bytesKey, value.toByteArray());
    default: {
        QByteArray streamed;
        QDataStream stream(&streamed, QIODevice::WriteOnly);
        stream.setVersion(streamVersion);
        stream << value;
        return inBase64(streamKey, streamed);
    }
    }
}

/// Invalid for what toJson() does not give.
QVariant fromJson(const QJsonValue& json)
{
    if (json.isString() || json.isBool())
        return json.toVariant();
    if (json.isArray()) {
        QStringList texts;
        for (const QJsonValue& text : json.toArray())
            texts << text.toString();
        return texts;
    }
    const QJsonObject object = json.toObject();
    if (object.contains(bytesKey))
        return QByteArray::fromBase64(object.value(bytesKey).toString().toLatin1());
    QByteArray streamed = QByteArray::fromBase64(object.value(streamKey).toString().toLatin1());
    QDataStream stream(&streamed, QIODevice::ReadOnly);
    stream.setVersion(streamVersion);
    QVariant value;
    stream >> value;
    return value;
}

bool read(QIODevice& device, QSettings::SettingsMap& map)
{
    const QJsonObject object = QJsonDocument::fromJson(device.readAll()).object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QVariant value = fromJson(entry.value());
        if (value.isValid())
            map.insert(entry.key(), value);
    }
    return true;
}

/// The answer decides whether the new file takes the old one's place, so all of it is on the disk by then.
bool write(QIODevice& device, const QSettings::SettingsMap& map)
{
    QJsonObject object;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        object.insert(entry.key(), toJson(entry.value()));
    const QByteArray bytes = QJsonDocument(object).toJson();
    auto* file = qobject_cast<QFileDevice*>(&device);
    return file && file->write(bytes) == bytes.size() && file->flush() && WholeFile::isOnDisk(file->handle());
}

} // namespace

void WholeSettings::use()
{
    static const QSettings::Format format = QSettings::registerFormat(QStringLiteral("json"), read, write);
    QSettings::setDefaultFormat(format);
}

void WholeSettings::set(const QString& key, const QVariant& value)
{
    const EndSignals::Hold untilTheyAreWhole;
    QSettings settings;
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
    settings.sync();
}

} // namespace kthost
