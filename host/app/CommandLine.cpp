#include "host/app/CommandLine.h"

#include "host/app/HostError.h"
#include "host/project/ProjectFile.h"

#include <QCommandLineParser>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <cmath>

namespace kthost
{
namespace
{

/// The most pixels that one side of a picture can have.
constexpr int longestSide = 16384;

[[noreturn]] void refuse(const QString& argument, const QString& why)
{
    throw HostError(ExitStatus::BadArguments, argument.toStdString(), why.toStdString());
}

// Arguments are bytes. They pass through the parser as Latin-1, which loses none, and are decoded here.
QString text(const QString& word)
{
    return QString::fromLocal8Bit(word.toLatin1());
}

QString path(const QString& word, const QString& option)
{
    if (word.isEmpty())
        refuse(option, QStringLiteral("a file or folder name is missing"));
    return QFile::decodeName(word.toLatin1());
}

/// More steps a second than these are shorter than the clock can tell apart.
constexpr double mostFramesPerSecond = 1e6;

double number(const QString& word, const QString& option, bool zeroIsFine)
{
    bool isNumber = false;
    const double value = word.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value) || value < 0.0 || (value == 0.0 && !zeroIsFine))
        refuse(option,
               QStringLiteral("'%1' is no number %2 0").arg(text(word), zeroIsFine ? "from" : "above"));
    return value;
}

double rate(const QString& word, const QString& option)
{
    const double value = number(word, option, false);
    if (value > mostFramesPerSecond)
        refuse(option, QStringLiteral("'%1' is more than a million steps a second").arg(text(word)));
    return value;
}

QSize size(const QString& word, const QString& option)
{
    const QStringList sides = word.toLower().split(QLatin1Char('x'));
    bool isWidth = false;
    bool isHeight = false;
    const QSize size(sides.value(0).toInt(&isWidth), sides.value(1).toInt(&isHeight));
    const bool isSize = sides.size() == 2 && isWidth && isHeight && size.width() > 0 && size.height() > 0;
    if (!isSize || size.width() > longestSide || size.height() > longestSide)
        refuse(option, QStringLiteral("'%1' is no size such as 1280x800, at most %2 pixels a side")
                           .arg(text(word), QString::number(longestSide)));
    return size;
}

SendAction send(const QString& word, const QString& option)
{
    const int separator = word.indexOf(QLatin1Char('='));
    if (separator <= 0)
        refuse(option, QStringLiteral("'%1' is not of the form MESSAGE=ANIMATION").arg(text(word)));
    return {word.left(separator).toLatin1().toStdString(), word.mid(separator + 1).toLatin1().toStdString()};
}

SaveAction save(const QString& word, const QString& option)
{
    const QString file = path(word, option);
    // Another name would be read as a scene's.
    if (!ProjectFile::isProject(file))
        refuse(option, QStringLiteral("'%1' does not end in .ktproj").arg(text(word)));
    return {file};
}

void addOptions(QCommandLineParser& parser)
{
    const auto add = [&](const char* name, const char* does, const char* value = "") {
        parser.addOption({QString::fromLatin1(name), QString::fromLatin1(does), QString::fromLatin1(value)});
    };
    add("headless", "Opens no window; ends after the last action. Only pictures need a display.");
    add("list", "Prints the animations that are registered, one name a line.");
    add("dump", "Prints each time sensor of the scene as one JSON object a line.");
    add("send", "Sends the message, such as animationStart, for the animation of that name.",
        "MESSAGE=ANIMATION");
    add("run", "Lets that much simulation time pass.", "SECONDS");
    add("fps", "Steps a second of the runs that follow (25).", "N");
    add("screenshot", "Writes a picture of the scene.", "FILE.png");
    add("frames", "Writes a numbered picture for each step of the runs that follow.", "FOLDER");
    add("size", "Size of the pictures that follow, in pixels (1280x800).", "WxH");
    add("save", "Saves the project: which scene is open, and what plug-ins keep with it.", "FILE.ktproj");
    add("script", "Runs a Python script; what follows -- are its arguments.", "FILE.py");
    add("plugin", "Loads this plug-in instead of the installed ones.", "FILE");
    add("plugin-dir", "Loads the plug-ins of this folder instead of the installed ones.", "FOLDER");
    parser.addOption({{"v", "version"}, "Prints the version."});
    parser.addOption({{"h", "help"}, "Prints this text."});
    parser.addPositionalArgument(
        "FILE", "What to open: a VRML97 scene, plain or gzip-ed, or a project (.ktproj).", "[FILE]");
}

/// Takes one option as it stands in the line; `value` is empty for those that have none.
void take(CommandLine& line, const QString& name, const QString& value)
{
    const QString option = QStringLiteral("--") + name;
    if (name == "headless")
        line.isHeadless = true;
    else if (name == "list")
        line.actions.emplace_back(ListAction());
    else if (name == "dump")
        line.actions.emplace_back(DumpAction());
    else if (name == "send")
        line.actions.emplace_back(send(value, option));
    else if (name == "run")
        line.actions.emplace_back(RunAction{number(value, option, true)});
    else if (name == "fps")
        line.actions.emplace_back(FpsAction{rate(value, option)});
    else if (name == "screenshot")
        line.actions.emplace_back(ScreenshotAction{path(value, option)});
    else if (name == "frames")
        line.actions.emplace_back(FramesAction{path(value, option)});
    else if (name == "size")
        line.actions.emplace_back(SizeAction{size(value, option)});
    else if (name == "save")
        line.actions.emplace_back(save(value, option));
    else if (name == "script")
        line.actions.emplace_back(ScriptAction{path(value, option), {}});
    else if (name == "plugin")
        line.pluginFiles.push_back(path(value, option));
    else if (name == "plugin-dir")
        line.pluginFolders.push_back(path(value, option));
}

/// What follows `--` belongs to the scripts where there are any; it is taken off `words` then.
std::vector<std::string> takeScriptWords(QStringList& words)
{
    const int separator = words.indexOf(QStringLiteral("--"));
    const auto isScript = [](const QString& word) {
        return word == "--script" || word.startsWith("--script=");
    };
    if (separator < 0 || std::none_of(words.cbegin(), words.cbegin() + separator, isScript))
        return {};
    std::vector<std::string> taken;
    for (const QString& word : words.mid(separator + 1))
        taken.push_back(word.toLatin1().toStdString());
    words = words.mid(0, separator);
    return taken;
}

} // namespace

CommandLine CommandLine::parse(int argc, const char* const* argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words << QString::fromLatin1(argv[i]);

    const std::vector<std::string> scriptWords = takeScriptWords(words);
    QCommandLineParser parser;
    addOptions(parser);
    CommandLine line;
    if (!parser.parse(words)) {
        QString why = text(parser.errorText());
        if (why.endsWith(QLatin1Char('.')))
            why.chop(1);
        refuse(QStringLiteral("arguments"), why);
    }
    line.wantsHelp = parser.isSet("help");
    line.wantsVersion = parser.isSet("version");
    if (line.wantsHelp || line.wantsVersion)
        return line;

    QHash<QString, int> taken; // the parser gives names in order, and values in order for each name
    for (const QString& name : parser.optionNames())
        take(line, name, parser.values(name).value(taken[name]++));
    for (Action& action : line.actions) {
        if (auto* script = std::get_if<ScriptAction>(&action))
            script->words = scriptWords;
    }

    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        refuse(text(files.at(1)), QStringLiteral("one file is enough"));
    if (!files.isEmpty())
        line.file = path(files.first(), QStringLiteral("FILE"));
    return line;
}

QString CommandLine::helpText()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "\nOpens a VRML97 scene and lets plug-ins drive its animations. FILE is opened first; then "
        "everything "
        "is done in the order given.\n\nExit status: 0 all done, 2 the arguments are off, 3 a file could not "
        "be "
        "read or written, 4 the picture could not be made or the display went away, 5 a script failed, 6 a "
        "plug-in named by --plugin could not be loaded, 70 an exception that nobody catches, 130 a script "
        "was "
        "interrupted; a script that ends by sys.exit() gives its own.");
    addOptions(parser);
    return parser.helpText();
}

} // namespace kthost
