#include "host/vrml/CheckChannel.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>

namespace kthost
{

bool CheckChannel::send(int socket, const std::string& packet)
{
    return ::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(packet.size());
}

std::string CheckChannel::receive(int socket)
{
    constexpr std::size_t longest = PATH_MAX + 24; // a number in front of a path
    std::string packet(longest, '\0');
    ssize_t length = 0;
    do {
        length = recv(socket, packet.data(), packet.size(), 0);
    } while (length < 0 && errno == EINTR);
    packet.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return packet;
}

std::optional<ReadLimits> CheckChannel::begin(int argc, char** argv)
{
    // Interrupts at the terminal are for the host, whose end is ours.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    return ReadLimits::fromWords({argv + std::min(argc, 1), argv + argc});
}

} // namespace kthost
