// kthost-scene-check: reads scene files for SceneGuard, or images for ImageGuard, each in a process that may
// fail.
//   kthost-scene-check scenes|images LIMIT...
// with the words of ReadLimits.
// CheckChannel says what it is connected with.
#include "host/vrml/CheckChannel.h"
#include "host/vrml/CheckProgress.h"
#include "host/vrml/CheckedReading.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/ImageDecoder.h"
#include "host/vrml/PixelMemory.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <functional>
#include <string>

namespace
{

using namespace kthost;

/// The exit status of a process whose reading came back; apart from those that CheckedReading knows.
constexpr int survived = 90;

/// A number in front of a path.
constexpr std::size_t longestPacket = PATH_MAX + 24;

std::string receive(int socket)
{
    std::string packet(longestPacket, '\0');
    ssize_t length = 0;
    do {
        length = recv(socket, packet.data(), packet.size(), 0);
    } while (length < 0 && errno == EINTR);
    packet.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return packet;
}

bool sendPacket(int socket, const std::string& packet)
{
    return send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(packet.size());
}

/// To the host, which may have other work for as long as it likes: the clock of the check stands still then.
void sendInOwnTime(const std::string& packet)
{
    if (send(CheckChannel::socket, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0)
        return;
    const itimerval none{};
    itimerval left{};
    setitimer(ITIMER_REAL, &none, &left);
    sendPacket(CheckChannel::socket, packet);
    setitimer(ITIMER_REAL, &left, nullptr);
}

std::string numberOf(const std::string& packet)
{
    return packet.substr(0, packet.find(' '));
}

bool sendVerdict(const std::string& packet, const std::string& reason)
{
    return sendPacket(CheckChannel::socket, CheckChannel::verdict + numberOf(packet) + " " + reason);
}

/// Reads a file, in a process that was forked for it; both are given as in the packet.
using Reading = std::function<void(const std::string& number, const std::string& path)>;

/// The process for the next file. It is forked before there is one, which saves the time at the file.
class Reader
{
public:
    explicit Reader(const Reading& read)
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
                serve(ends[1], read);
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
    bool handOver(const std::string& packet) const { return _process > 0 && sendPacket(_socket, packet); }

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
    static void serve(int socket, const Reading& read)
    {
        const std::string packet = receive(socket);
        if (packet.empty())
            return;
        read(numberOf(packet), packet.substr(numberOf(packet).size() + 1));
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
           sendVerdict(packet, CheckedReading::reasonOf(status, limits));
}

void serve(const ReadLimits& limits, const Reading& read)
{
    for (bool isServing = true; isServing;) {
        Reader reader(read);
        const std::string packet = receive(CheckChannel::socket);
        isServing = !packet.empty() && check(packet, reader, limits);
    }
}

/// False where it cannot.
bool serveScenes(const ReadLimits& limits)
{
    CoinLibrary::init();
    CheckProgress progress(CheckChannel::memory);
    if (progress.failed())
        return false;
    serve(limits, [&](const std::string& number, const std::string& path) {
        const auto pass = [&](std::uint64_t place) {
            if (progress.tell(place))
                sendPacket(CheckChannel::socket, std::string(1, CheckChannel::news));
        };
        const auto find = [&](const FoundFile& file) {
            sendInOwnTime(CheckChannel::found + number + " " + std::to_string(file.path) + " " +
                          std::to_string(file.bytes));
        };
        CheckedReading::read(path, limits, {pass, find});
    });
    return true;
}

/// In this very process: to fork one takes longer than most images do. The host asks on behind an image that
/// ends it.
void serveImages(const ReadLimits& limits)
{
    PixelMemory memory(CheckChannel::memory);
    for (std::string path = receive(CheckChannel::socket); !path.empty();
         path = receive(CheckChannel::socket)) {
        std::string answer(1, CheckChannel::verdict);
        CheckedReading::run(limits, [&] {
            ImageSize size;
            const auto room = [&](const ImageSize& needed) {
                size = needed;
                return memory.grow(size.bytes());
            };
            if (ImageDecoder::decode(path, limits, room))
                answer = CheckChannel::image + size.words();
        });
        sendPacket(CheckChannel::socket, answer);
    }
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int wrongUse = 2;
    const std::string reads = argc > 1 ? argv[1] : "";
    const auto limits = ReadLimits::fromWords({argv + std::min(argc, 2), argv + argc});
    if (!limits)
        return wrongUse;
    // Interrupts at the terminal are for the host, whose end is ours.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    if (reads == CheckChannel::images)
        serveImages(*limits);
    else if (reads != CheckChannel::scenes || !serveScenes(*limits))
        return wrongUse;
}
