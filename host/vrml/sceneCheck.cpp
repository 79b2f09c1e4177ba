// kthost-scene-check: reads scene files for SceneGuard, each in a process that may fail.
//   kthost-scene-check LIMIT...
// with the words of ReadLimits.
// CheckChannel says what it is connected with.
#include "host/vrml/CheckChannel.h"
#include "host/vrml/CheckProgress.h"
#include "host/vrml/CheckedReading.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/LimitedRun.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

namespace
{

using namespace kthost;

/// The exit status of a process whose reading came back; apart from those that LimitedRun knows.
constexpr int survived = 90;

/// To the host, which may have other work for as long as it likes: the clock of the check stands still then.
void sendInOwnTime(const std::string& packet)
{
    if (send(CheckChannel::socket, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0)
        return;
    const itimerval none{};
    itimerval left{};
    setitimer(ITIMER_REAL, &none, &left);
    CheckChannel::send(CheckChannel::socket, packet);
    setitimer(ITIMER_REAL, &left, nullptr);
}

std::string numberOf(const std::string& packet)
{
    return packet.substr(0, packet.find(' '));
}

bool sendVerdict(const std::string& packet, const std::string& reason)
{
    return CheckChannel::send(CheckChannel::socket, CheckChannel::verdict + numberOf(packet) + " " + reason);
}

/// The process for the next file. It is forked before there is one, which saves the time at the file.
class Reader
{
public:
    Reader(const ReadLimits& limits, CheckProgress& progress)
    {
        std::array<int, 2> ends{-1, -1};
        if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
            return;
        _socket = ends[0];
        const pid_t parent = getpid();
        _process = fork();
        if (_process == 0) {
            close(_socket);
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (getppid() == parent)
                serve(ends[1], limits, progress);
            _exit(0);
        }
        close(ends[1]);
    }

    ~Reader()
    {
        if (_socket >= 0)
            close(_socket);
        waitForEnd();
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// False where it does not run.
    bool handOver(const std::string& packet) const
    {
        return _process > 0 && CheckChannel::send(_socket, packet);
    }

    /// The status with which it ends.
    int waitForEnd()
    {
        int status = 0;
        while (_process > 0 && waitpid(_process, &status, 0) < 0 && errno == EINTR) {
        }
        _process = -1;
        return status;
    }

private:
    static void serve(int socket, const ReadLimits& limits, CheckProgress& progress)
    {
        const std::string packet = CheckChannel::receive(socket);
        if (packet.empty())
            return;
        const auto pass = [&](std::uint64_t place) {
            if (progress.tell(place))
                CheckChannel::send(CheckChannel::socket, std::string(1, CheckChannel::news));
        };
        const auto find = [&](const FoundFile& file) {
            sendInOwnTime(CheckChannel::found + numberOf(packet) + " " + std::to_string(file.path) + " " +
                          std::to_string(file.bytes));
        };
        CheckedReading::read(packet.substr(numberOf(packet).size() + 1), limits, {pass, find});
        // At once: taking the process down takes its time too.
        sendVerdict(packet, {});
        _exit(survived);
    }

    int _socket = -1;
    pid_t _process = -1;
};

/// False where nobody is there any more to be told.
bool check(const std::string& packet, Reader& reader, const ReadLimits& limits)
{
    if (!reader.handOver(packet))
        return sendVerdict(packet, "there is no process left to check it");
    const int status = reader.waitForEnd();
    return (WIFEXITED(status) && WEXITSTATUS(status) == survived) ||
           sendVerdict(packet, LimitedRun::reasonOf(status, limits));
}

void serve(const ReadLimits& limits, CheckProgress& progress)
{
    for (bool isServing = true; isServing;) {
        Reader reader(limits, progress);
        const std::string packet = CheckChannel::receive(CheckChannel::socket);
        isServing = !packet.empty() && check(packet, reader, limits);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const auto limits = CheckChannel::begin(argc, argv);
    if (!limits)
        return 2;
    CoinLibrary::init();
    CheckProgress progress(CheckChannel::memory);
    if (progress.failed())
        return 2;
    serve(*limits, progress);
}
