// projectSaver FILE MICROSECONDS: saves the project FILE again and again, and is killed that long after the
// first save. Each save has more in it, or less, than the one before.
#include "host/project/ProjectFile.h"

#include <csignal>
#include <cstdlib>
#include <ctime>

namespace
{

/// The system kills this process, without a word, when the time is over.
void dieIn(long microseconds)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    itimerspec when{};
    when.it_value.tv_nsec = microseconds * 1000;
    if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 || timer_settime(timer, 0, &when, nullptr) != 0)
        std::exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const QString file = QString::fromLocal8Bit(argv[1]);
    for (int i = 1;; ++i) {
        kthost::Project project;
        project.attributes["round"] = i;
        project.attributes["texts"] =
            std::vector<std::string>(static_cast<std::size_t>(i % 50) * 100, std::to_string(i));
        kthost::ProjectFile::write(project, file);
        if (i == 1)
            dieIn(std::atol(argv[2]));
    }
}
