#pragma once

#include <QJsonValue>
#include <QString>

#include <boost/any.hpp>

#include <optional>
#include <string>

namespace kthost
{

/// The values that a project file can hold: bool, int, double, std::string and std::vector<std::string>. Each
/// comes back from its JSON to the bit.
class AttributeValue
{
public:
    /// Its name in files: "bool", "int", "double", "string" or "strings". Empty for another type.
    static QString typeOf(const boost::any& value);

    /// Null for another type.
    static QJsonValue toJson(const boost::any& value);

    /// Empty where there is no such type. Throws WrongValue where `json` does not hold a value of it; its
    /// path is relative to `json`.
    static std::optional<boost::any> fromJson(const QString& type, const QJsonValue& json);

    /// Of one type, and the same to the bit. Values of other types are never the same.
    static bool areSame(const boost::any& a, const boost::any& b);

    /// Bytes as a text where they are UTF-8 that gives the same bytes back, else as {"base64": "..."}.
    static QJsonValue bytesToJson(const std::string& bytes);

    /// Throws WrongValue.
    static std::string bytesFromJson(const QJsonValue& json);
};

} // namespace kthost
