#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <map>
#include <string>

namespace kt::test
{

/// What a run of the built kthost printed, and how it ended.
struct HostRun
{
    int status = -1; ///< -1 where it crashed or did not end in time.
    QByteArray output;
    QByteArray errors;

    QStringList lines() const
    {
        return QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    QStringList errorLines() const
    {
        return QString::fromUtf8(errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
};

/// Runs the built kthost to its end with these words; `environment` is added to the test's own.
inline HostRun runHost(const QStringList& words, const std::map<std::string, std::string>& environment = {})
{
    constexpr int longestRun = 100000; // milliseconds; instrumented builds are slow
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process.setProcessEnvironment(variables);
    process.start(QStringLiteral(KT_BUILD_DIR "/bin/kthost"), words);
    if (!process.waitForFinished(longestRun)) {
        process.kill();
        process.waitForFinished();
    }
    HostRun run;
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    if (process.exitStatus() == QProcess::NormalExit && process.error() == QProcess::UnknownError)
        run.status = process.exitCode();
    return run;
}

/// The same without a window.
inline HostRun runHeadless(QStringList words)
{
    words.prepend(QStringLiteral("--headless"));
    return runHost(words);
}

/// The words that let so many seconds of simulation pass.
inline QStringList runFor(const char* seconds)
{
    return {QStringLiteral("--run"), QLatin1String(seconds)};
}

inline QString exampleScene(const char* name)
{
    return QStringLiteral(KT_EXAMPLES_DIR "/scenes/") + QLatin1String(name);
}

} // namespace kt::test
