#include <kt/ktFailures.h>

#include <kt/ktLog.h>

#include <algorithm>
#include <exception>
#include <unordered_map>

namespace
{

constexpr int mostTold = 100;

struct Told
{
    std::string last;
    int times = 0;
};

// Never destroyed: plug-ins fail while the process ends, too.
std::unordered_map<std::string, Told>& told()
{
    static auto* const instance = new std::unordered_map<std::string, Told>;
    return *instance;
}

} // namespace

void ktFailures::tell(const std::string& where, const std::string& what)
{
    Told& before = told()[where];
    if (before.times == mostTold || (before.times > 0 && before.last == what))
        return;
    before.last = what;
    ++before.times;
    const char* const end = before.times == mostTold ? " (told for the last time)" : "";
    ktLog::error("%s: %s%s", inOneLine(where).c_str(), inOneLine(what).c_str(), end);
}

std::string ktFailures::present()
{
    const std::exception_ptr exception = std::current_exception();
    if (!exception)
        return {};
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& error) {
        return inOneLine(error.what());
    } catch (...) {
        return "an unknown exception";
    }
}

std::string ktFailures::inOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return text;
}

void ktFailures::forget()
{
    told().clear();
}
