#pragma once

#include "host/vrml/ImageGuard.h"
#include "tests/support/LogRecorder.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QString>

#include <filesystem>
#include <optional>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace kthost::test
{

/// Bytes.
using Pixels = std::vector<unsigned char>;

/// Images in a folder, and what is to be seen of guards and their programs.
class ImageGuardFixture : public testing::Test
{
protected:
    std::string save(const std::string& name, const QImage& picture) const
    {
        EXPECT_TRUE(picture.save(QString::fromStdString(folder.path(name))));
        return folder.path(name);
    }

    std::string saveRed(const std::string& name) const
    {
        QImage picture(2, 1, QImage::Format_RGB32);
        picture.fill(Qt::red);
        return save(name, picture);
    }

    std::string saveGrey(const std::string& name, const QSize& size = {3000, 700}) const
    {
        QImage picture(size, QImage::Format_Grayscale8);
        picture.fill(77);
        return save(name, picture);
    }

    /// Null where it is not read; then nobody must have asked for room.
    static std::optional<Pixels> read(ImageGuard& guard, const std::string& path)
    {
        std::optional<Pixels> pixels;
        const bool isRead = guard.read(path, [&](const ImageSize& size) {
            pixels = Pixels(size.bytes());
            return pixels->data();
        });
        EXPECT_EQ(isRead, pixels.has_value());
        return pixels;
    }

    /// The programs that read images for this process.
    static std::vector<pid_t> programs()
    {
        std::vector<pid_t> found;
        for (const QString& process : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs)) {
            QFile status("/proc/" + process + "/status");
            QFile words("/proc/" + process + "/cmdline");
            if (status.open(QIODevice::ReadOnly) && words.open(QIODevice::ReadOnly) &&
                status.readAll().contains("\nPPid:\t" + QByteArray::number(getpid()) + "\n") &&
                words.readAll().contains("image-reader"))
                found.push_back(process.toInt());
        }
        return found;
    }

    /// What is really there of the memory that this process shares for images, in bytes.
    static std::vector<std::size_t> sizesOfMemory()
    {
        std::vector<std::size_t> sizes;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code isGone;
            struct stat memory = {};
            if (std::filesystem::read_symlink(entry, isGone).string().rfind("/memfd:image", 0) == 0 &&
                stat(entry.path().c_str(), &memory) == 0)
                sizes.push_back(static_cast<std::size_t>(memory.st_blocks) * 512);
        }
        return sizes;
    }

    SceneFolder folder;
    kt::test::LogRecorder log;
    const Pixels red{255, 0, 0, 255, 0, 0};
    static constexpr std::size_t greyBytes = 2100000;
};

} // namespace kthost::test
