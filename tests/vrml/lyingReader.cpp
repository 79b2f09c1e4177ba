// In place of kthost-image-reader: says of each image that there are pixels, but writes none. A path that
// ends in a digit ends the program instead, with this status.
#include "host/vrml/CheckChannel.h"
#include "host/vrml/ImageDecoder.h"

#include <unistd.h>

using kthost::CheckChannel;

int main()
{
    for (std::string path = CheckChannel::receive(CheckChannel::socket); !path.empty();
         path = CheckChannel::receive(CheckChannel::socket)) {
        if (path.back() >= '0' && path.back() <= '9')
            return path.back() - '0';
        if (path.back() == '+' && ftruncate(CheckChannel::memory, 40000) != 0)
            return 1;
        CheckChannel::send(CheckChannel::socket,
                           CheckChannel::image + kthost::ImageSize{100, 100, 4}.words());
    }
}
