#include "host/project/AttributeValue.h"

#include "host/project/ProjectError.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace kthost
{
namespace
{

using Strings = std::vector<std::string>;

const QLatin1String base64Key("base64");
const QLatin1String bitsPrefix("0x");

[[noreturn]] void refuse(const char* why, const QStringList& path = {})
{
    throw WrongValue{path, QString::fromLatin1(why)};
}

std::uint64_t bitsOf(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

QJsonValue json(bool value)
{
    return value;
}

QJsonValue json(int value)
{
    return value;
}

QJsonValue json(double value)
{
    // JSON has no infinities and the like, and Qt's no negative zero.
    const bool isPlain = std::isfinite(value) && !(value == 0.0 && std::signbit(value));
    return isPlain ? QJsonValue(value)
                   : QJsonValue(bitsPrefix +
                                QString::number(bitsOf(value), 16).rightJustified(16, QLatin1Char('0')));
}

QJsonValue json(const std::string& value)
{
    return AttributeValue::bytesToJson(value);
}

QJsonValue json(const Strings& value)
{
    QJsonArray array;
    for (const std::string& bytes : value)
        array.append(AttributeValue::bytesToJson(bytes));
    return array;
}

bool read(const QJsonValue& json, bool*)
{
    if (!json.isBool())
        refuse("is neither true nor false");
    return json.toBool();
}

int read(const QJsonValue& json, int*)
{
    const double number = json.toDouble(0.5);
    const bool isInt = number >= std::numeric_limits<int>::min() &&
                       number <= std::numeric_limits<int>::max() && number == std::floor(number);
    if (!isInt)
        refuse("is no whole number of 32 bits");
    return static_cast<int>(number);
}

double read(const QJsonValue& json, double*)
{
    if (json.isDouble())
        return json.toDouble();
    const QString text = json.toString();
    bool isNumber = false;
    const std::uint64_t bits = text.mid(bitsPrefix.size()).toULongLong(&isNumber, 16);
    if (!isNumber || !text.startsWith(bitsPrefix) || text.size() != bitsPrefix.size() + 16)
        refuse("is neither a number nor \"0x\" with the 16 digits of one");
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

std::string read(const QJsonValue& json, std::string*)
{
    return AttributeValue::bytesFromJson(json);
}

Strings read(const QJsonValue& json, Strings*)
{
    if (!json.isArray())
        refuse("is no array of texts");
    const QJsonArray array = json.toArray();
    Strings strings;
    strings.reserve(static_cast<std::size_t>(array.size()));
    for (int i = 0; i < array.size(); ++i) {
        try {
            strings.push_back(AttributeValue::bytesFromJson(array.at(i)));
        } catch (WrongValue& wrong) {
            wrong.path.prepend(QStringLiteral("[%1]").arg(i));
            throw;
        }
    }
    return strings;
}

template <class T>
bool isSame(const T& a, const T& b)
{
    return a == b;
}

template <>
bool isSame(const double& a, const double& b)
{
    return bitsOf(a) == bitsOf(b);
}

/// Calls `use` with each known type's name in files and a null pointer of the type, until it answers true.
template <class Use>
bool anyType(const Use& use)
{
    return use("bool", static_cast<bool*>(nullptr)) || use("int", static_cast<int*>(nullptr)) ||
           use("double", static_cast<double*>(nullptr)) ||
           use("string", static_cast<std::string*>(nullptr)) ||
           use("strings", static_cast<Strings*>(nullptr));
}

/// What `value` holds, where that is a T.
template <class T>
const T* held(const boost::any& value, T*)
{
    return boost::any_cast<T>(&value);
}

} // namespace

QString AttributeValue::typeOf(const boost::any& value)
{
    QString found;
    anyType([&](const char* name, auto* type) {
        if (held(value, type))
            found = QString::fromLatin1(name);
        return !found.isEmpty();
    });
    return found;
}

QJsonValue AttributeValue::toJson(const boost::any& value)
{
    QJsonValue result;
    anyType([&](const char*, auto* type) {
        const auto* known = held(value, type);
        if (known)
            result = json(*known);
        return known != nullptr;
    });
    return result;
}

std::optional<boost::any> AttributeValue::fromJson(const QString& type, const QJsonValue& value)
{
    std::optional<boost::any> result;
    anyType([&](const char* name, auto* known) {
        if (type == QLatin1String(name))
            result = boost::any(read(value, known));
        return result.has_value();
    });
    return result;
}

bool AttributeValue::areSame(const boost::any& a, const boost::any& b)
{
    return anyType([&](const char*, auto* type) {
        const auto* first = held(a, type);
        const auto* second = held(b, type);
        return first && second && isSame(*first, *second);
    });
}

QJsonValue AttributeValue::bytesToJson(const std::string& bytes)
{
    const auto raw = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    const QString text = QString::fromUtf8(raw.constData(), raw.size()); // all of it: zeros are bytes as well
    if (text.toUtf8() == raw)
        return text;
    return QJsonObject{{base64Key, QString::fromLatin1(raw.toBase64())}};
}

std::string AttributeValue::bytesFromJson(const QJsonValue& json)
{
    if (json.isString()) {
        const QString text = json.toString();
        // Half of a surrogate pair has no bytes of its own.
        if (!text.isValidUtf16())
            refuse("is no valid Unicode");
        return text.toStdString();
    }
    const QJsonValue encoded = json.toObject().value(base64Key);
    if (!encoded.isString() || json.toObject().size() != 1)
        refuse("is neither a text nor {\"base64\": \"...\"}");
    const auto decoded =
        QByteArray::fromBase64Encoding(encoded.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        refuse("is no base64", {base64Key});
    return decoded.decoded.toStdString();
}

} // namespace kthost
