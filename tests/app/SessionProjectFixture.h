#pragma once

#include "host/app/HostError.h"
#include "host/app/Session.h"
#include "tests/support/LogRecorder.h"

#include <kt/ktFileIO.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <functional>
#include <stdexcept>
#include <utility>

namespace kt::test
{

/// A module with one setting, which notes what it is told.
class NotingModule : public ktModuleBase
{
public:
    NotingModule()
        : ktModuleBase("Noting", "Noting",
                       ktMessageId::SceneCleared | ktMessageId::Project | ktMessageId::SceneChanged, nullptr)
    {
    }

    void receivedMessage(ktMessage& message) override
    {
        ktMessage& project = ktFileIO::getProject();
        if (message.id() != ktMessageId::Project) {
            told << QString::number(message.id()) + (ktScenegraph::getRootNode() ? " scene" : "");
            return;
        }
        bool isLoading = false;
        ASSERT_TRUE(project.get<bool>("_loading", isLoading));
        told << (isLoading ? "load" : "save");
        if (whenAsked)
            std::exchange(whenAsked, nullptr)();
        if (fails)
            throw std::runtime_error("no luck");
        if (isLoading)
            project.get<std::string>("setting", setting);
        else
            project.set("setting", setting);
    }

    QStringList told;
    std::string setting;
    bool fails = false;              ///< At whatever it is asked about the project.
    std::function<void()> whenAsked; ///< Called when it is asked about the project next, once.
};

/// A session with such a module, and a folder with the scene door.wrl.
class SessionProjectFixture : public testing::Test
{
protected:
    SessionProjectFixture() { QFile::copy(KT_EXAMPLES_DIR "/scenes/door.wrl", path("door.wrl")); }

    QString path(const char* name) const { return QDir(folder.path()).filePath(name); }

    void put(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    const QJsonObject document(const char* name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }

    /// A project with the scene and this setting.
    void putProject(const char* name, const char* setting, const char* scene = "door.wrl") const
    {
        put(name, R"({"formatVersion": 1, "scene": ")" + QByteArray(scene) +
                      R"(", "attributes": {"setting": {"type": "string", "value": ")" + setting + "\"}}}");
    }

    std::string failureOfOpen(const char* name)
    {
        try {
            session.open(path(name));
        } catch (const kthost::HostError& error) {
            EXPECT_EQ(error.status(), kthost::ExitStatus::BadFile);
            return error.what();
        }
        return "";
    }

    QTemporaryDir folder;
    LogRecorder log;
    kthost::Session session;
    NotingModule module;
};

} // namespace kt::test
