#include "host/app/Failures.h"

#include <kt/ktLog.h>

#include <QString>

#include <unordered_map>

namespace kthost
{
namespace
{

constexpr int mostTold = 100;

struct Told
{
    std::string last;
    int times = 0;
};

} // namespace

void Failures::tell(const std::string& where, const std::string& what)
{
    static std::unordered_map<std::string, Told> told;
    Told& before = told[where];
    if (before.times == mostTold || (before.times > 0 && before.last == what))
        return;
    before.last = what;
    ++before.times;
    ktLog::error("%s: %s%s", where.c_str(), qUtf8Printable(QString::fromStdString(what).simplified()),
                 before.times == mostTold ? " (told for the last time)" : "");
}

} // namespace kthost
