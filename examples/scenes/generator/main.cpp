// kt-make-scene: writes a VRML97 scene of a given size, for trying out how a host copes with it.
#include "examples/scenes/generator/SceneGenerator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

#include <cstdio>

namespace
{

int fail(int status, const QString& reason)
{
    std::fprintf(stderr, "kt-make-scene: %s\n", qUtf8Printable(reason));
    return status;
}

/// The option's value as a number from 0 to ten million; -1 where it is none.
int numberOf(const QCommandLineParser& parser, const QString& option)
{
    bool isNumber = false;
    const int number = parser.value(option).toInt(&isNumber);
    return isNumber && number >= 0 && number <= 10'000'000 ? number : -1;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Writes a VRML97 scene of a given size.");
    parser.addHelpOption();
    parser.addOption({"sensors", "How many time sensors, each moving a box (100).", "N", "100"});
    parser.addOption({"nodes", "How many nodes besides (0).", "M", "0"});
    parser.addPositionalArgument("FILE", "The file to write.");
    parser.process(application);

    const int sensors = numberOf(parser, "sensors");
    const int nodes = numberOf(parser, "nodes");
    if (sensors < 0 || nodes < 0)
        return fail(2, "arguments: --sensors and --nodes take a number from 0 to 10000000");
    if (parser.positionalArguments().size() != 1)
        return fail(2, "arguments: name one file to write");

    const std::string text = kthost::bench::SceneGenerator::generate(sensors, nodes);
    QSaveFile file(parser.positionalArguments().constFirst());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0 ||
        !file.commit())
        return fail(3, file.fileName() + ": " + file.errorString());
    return 0;
}
