#include "fuzz/AnyValue.h"

#include <kt/ktNodePtr.h>
#include <kt/ktScenegraph.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kt::fuzz
{
namespace
{

/// Larger than what a value holds in place, and with a destructor to be missed.
struct Large
{
    double numbers[64] = {};
    std::shared_ptr<int> owned = std::make_shared<int>(1);
};

std::vector<std::string> strings(Bytes& bytes)
{
    std::vector<std::string> all(bytes.byte());
    for (std::string& each : all)
        each = bytes.text();
    return all;
}

using Maker = boost::any (*)(Bytes&);

const Maker makers[] = {
    [](Bytes&) { return boost::any(); },
    [](Bytes& bytes) { return boost::any(bytes.byte() % 2 != 0); },
    [](Bytes& bytes) { return boost::any(bytes.number<int>()); },
    [](Bytes& bytes) { return boost::any(bytes.number<double>()); },
    [](Bytes& bytes) { return boost::any(bytes.number<unsigned>()); },
    [](Bytes& bytes) { return boost::any(bytes.number<long long>()); },
    [](Bytes& bytes) { return boost::any(bytes.number<float>()); },
    [](Bytes& bytes) { return boost::any(static_cast<char>(bytes.byte())); },
    [](Bytes&) { return boost::any(static_cast<const char*>("Door")); },
    [](Bytes&) { return boost::any(static_cast<const char*>(nullptr)); },
    [](Bytes&) { return boost::any(nullptr); },
    [](Bytes& bytes) { return boost::any(QString::fromStdString(bytes.text())); },
    [](Bytes& bytes) { return boost::any(QByteArray::fromStdString(bytes.text())); },
    [](Bytes& bytes) { return boost::any(QStringList(QString::fromStdString(bytes.text()))); },
    [](Bytes& bytes) { return boost::any(QVariant(QString::fromStdString(bytes.text()))); },
    [](Bytes& bytes) { return boost::any(std::wstring(bytes.byte(), L'D')); },
    [](Bytes& bytes) { return boost::any(std::vector<int>(bytes.byte())); },
    [](Bytes& bytes) { return boost::any(std::vector<std::vector<std::string>>{strings(bytes)}); },
    [](Bytes& bytes) {
        return boost::any(std::vector<boost::any>{bytes.text(), bytes.byte()});
    },
    [](Bytes& bytes) {
        return boost::any(std::map<std::string, std::string>{{bytes.text(), "Door"}});
    },
    [](Bytes& bytes) { return boost::any(std::pair<std::string, int>(bytes.text(), 1)); },
    [](Bytes& bytes) { return boost::any(std::shared_ptr<std::string>(new std::string(bytes.text()))); },
    [](Bytes&) { return boost::any(std::function<void()>([] {})); },
    [](Bytes&) { return boost::any(ktNodePtr(ktScenegraph::getRootNode())); },
    [](Bytes&) { return boost::any(Large()); },
};

} // namespace

boost::any anyValue(Bytes& bytes)
{
    const std::uint8_t kind = bytes.byte();
    if (kind % 3 == 1)
        return bytes.text();
    if (kind % 3 == 2)
        return strings(bytes);
    return makers[kind / 3 % std::size(makers)](bytes);
}

} // namespace kt::fuzz
