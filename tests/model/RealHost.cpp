#include "tests/model/RealHost.h"

#include "tests/model/HostModel.h"

#include <kt/ktController.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScript.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <iostream>
#include <stdexcept>

namespace kt::test
{

Printed::Printed() : _before(std::cout.rdbuf(_text.rdbuf())) {}

Printed::~Printed()
{
    std::cout.rdbuf(_before);
}

std::string Printed::take()
{
    std::string text = _text.str();
    _text.str({});
    return text;
}

RealHost::RealHost()
    : _root(QDir(_folder.path()).canonicalPath()),
      _guard(KT_BUILD_DIR "/lib/kthost/kthost-scene-check", kthost::ReadLimits())
{
    session.setGuard(&_guard);
    ktController::setMainWindow(&_window, &_docks);
    const QString why = _plugins.load(QStringLiteral(KT_PLUGIN_FILE));
    if (!why.isEmpty())
        throw std::runtime_error("the plug-in: " + why.toStdString());
    QDir(_root).mkdir(QStringLiteral("sub"));
    write(HostModel::brokenScene, "#VRML V2.0 utf8\nTransform {{\n");
    if (kthost::Scripting::isBuilt())
        ktScript::run("import ktHost");
}

void RealHost::putBack()
{
    session.frames().settle();
    session.close();
    ktController::setSimulationTime(0.0);
    wheel("_cycle_interval").setValue(1.0);
    wheel("_fraction").setValue(0.0);
    for (QComboBox* box : panel().findChildren<QComboBox*>())
        box->setCurrentIndex(0);
    for (const char* file : {"a.wrl", "b.wrl", "c.wrl", "one.ktproj", "two.ktproj", "sub/three.ktproj"})
        QFile::remove(path(file));
    printed.take();
    log.lines().clear();
}

QString RealHost::path(const QString& name) const
{
    return name.isEmpty() ? QString() : _root + QLatin1Char('/') + name;
}

void RealHost::write(const QString& name, const std::string& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(bytes.data(), static_cast<qint64>(bytes.size())) != static_cast<qint64>(bytes.size()))
        throw std::runtime_error("the folder of the model's files cannot be written");
}

std::string RealHost::failureOf(const std::function<void()>& action)
{
    try {
        action();
        return {};
    } catch (const kthost::HostError& error) {
        return error.what();
    }
}

std::string RealHost::ask(const std::string& expression)
{
    printed.take();
    const std::string script =
        "try:\n"
        "    print " +
        expression +
        "\n"
        "except Exception as error:\n"
        "    print '%s.%s: %s' % (type(error).__module__, type(error).__name__, error)\n";
    ktScript::run(script.c_str());
    std::string answer = printed.take();
    if (!answer.empty())
        answer.pop_back(); // the end of the line
    return answer;
}

QWidget& RealHost::panel() const
{
    return *ktModuleBase::modules().at(0)->getWidget();
}

} // namespace kt::test
