#pragma once

#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace kt::test
{

/// A folder of its own for the scripts and files of a test, and runs of the built host in it.
class ScriptRun : public testing::Test
{
protected:
    /// Writes a script into the folder and answers its path.
    QString script(const char* text, const char* name = "script.py") const
    {
        QFile file(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    /// Runs the script with the built plug-in in the example scene of the door.
    HostRun runScript(const char* text, const QStringList& arguments = {}) const
    {
        return runHeadless(QStringList{"--plugin", KT_PLUGIN_FILE, exampleScene("door.wrl"), "--script",
                                       script(text), "--"} +
                           arguments);
    }

    /// What the script printed, a line an entry; it must have ended well. The plug-in's farewell is left out.
    QStringList printed(const char* text, const QStringList& arguments = {}) const
    {
        const HostRun run = runScript(text, arguments);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.isEmpty()) << run.errors.toStdString();
        QStringList lines = run.lines();
        EXPECT_EQ(lines.removeAll("pythonInit: destroy ktAnimation!"), 1);
        return lines;
    }

    QTemporaryDir folder;
};

} // namespace kt::test
