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
    int status = -1; ///< -1 where a signal ended it, or it did not end in time.
    int signal = 0;  ///< The one that ended it.
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

constexpr int longestRun = 100000; // milliseconds; instrumented builds are slow

/// The built kthost while it runs; `environment` is added to the test's own.
class HostProcess : public QProcess
{
public:
    explicit HostProcess(const QStringList& words, const std::map<std::string, std::string>& environment = {})
        : _words(words)
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const auto& [name, value] : environment)
            variables.insert(QString::fromStdString(name), QString::fromStdString(value));
        setProcessEnvironment(variables);
    }

    void run() { start(QStringLiteral(KT_BUILD_DIR "/bin/kthost"), _words); }

    /// False where it ends without having printed this.
    bool waitForOutput(const QByteArray& text)
    {
        while (!_output.contains(text) && waitForReadyRead(longestRun))
            _output += readAllStandardOutput();
        return _output.contains(text);
    }

    /// What became of it, once it has ended.
    HostRun result()
    {
        HostRun run;
        if (state() != NotRunning && !waitForFinished(longestRun)) {
            kill();
            waitForFinished();
            return run;
        }
        run.output = _output + readAllStandardOutput();
        run.errors = readAllStandardError();
        if (exitStatus() == NormalExit && error() == UnknownError)
            run.status = exitCode();
        else if (error() == Crashed)
            run.signal = exitCode();
        return run;
    }

private:
    QStringList _words;
    QByteArray _output;
};

/// Runs the built kthost to its end with these words.
inline HostRun runHost(const QStringList& words, const std::map<std::string, std::string>& environment = {})
{
    HostProcess process(words, environment);
    process.run();
    return process.result();
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
