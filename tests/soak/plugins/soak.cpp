// A plug-in that keeps the host busy: in each turn of the frame loop random messages, keys and edits of the
// scene, the same for the same seed. What the process holds meanwhile goes into a table.
//   KT_SOAK_TABLE   the table's file, a line a record, without which nothing is recorded
//   KT_SOAK_SEED    a number
//   KT_SOAK_EVERY   turns between two records; 0 leaves both them and the randomness out
//   --send soakRecord=PROGRESS   a record in between
#include "tests/soak/plugins/Mischief.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktModuleBase.h>

#include <QDir>

#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace
{

unsigned long number(const char* variable)
{
    const char* text = std::getenv(variable);
    return text ? std::strtoul(text, nullptr, 10) : 0;
}

class Soak : public ktModuleBase
{
public:
    Soak() : ktModuleBase("Soak", "Soak", 0, nullptr), _mischief(number("KT_SOAK_SEED"))
    {
        const char* table = std::getenv("KT_SOAK_TABLE");
        _table.reset(table ? std::fopen(table, "w") : nullptr);
        if (_table)
            std::fprintf(_table.get(), "progress,seconds,resident_kB,heap_kB,descriptors,messages,edits\n");
        ktController::addCB("soakRecord", [](ktMessage& message) {
            std::string progress;
            message.get("animation-name", progress);
            instance->record(std::strtoul(progress.c_str(), nullptr, 10));
        });
        instance = this;
    }

    void loop() override
    {
        if (_every == 0)
            return;
        _mischief.turn();
        if (++_turns % _every == 0)
            record(_turns);
    }

private:
    struct Close
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    void record(unsigned long progress)
    {
        if (!_table)
            return;
        unsigned long pages = 0;
        unsigned long resident = 0;
        std::ifstream("/proc/self/statm") >> pages >> resident;
        const struct mallinfo2 heap = mallinfo2();
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - _begin;
        const auto descriptors =
            QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
        std::fprintf(_table.get(), "%lu,%.1f,%lu,%zu,%d,%lu,%lu\n", progress, seconds.count(),
                     resident * static_cast<unsigned long>(sysconf(_SC_PAGESIZE)) / 1024,
                     (heap.uordblks + heap.hblkhd) / 1024, static_cast<int>(descriptors.size()),
                     _mischief.messages(), _mischief.edits());
        std::fflush(_table.get());
    }

    static Soak* instance;

    kt::soak::Mischief _mischief;
    unsigned long _every = number("KT_SOAK_EVERY");
    unsigned long _turns = 0;
    std::unique_ptr<std::FILE, Close> _table;
    std::chrono::steady_clock::time_point _begin = std::chrono::steady_clock::now();
};

Soak* Soak::instance = nullptr;

} // namespace

extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    static Soak module;
}
