#pragma once

#include "host/app/ActionRunner.h"
#include "host/app/Pictures.h"
#include "host/app/PluginLoader.h"
#include "host/app/Scripting.h"
#include "host/app/Session.h"
#include "host/view/KeyReporter.h"
#include "host/vrml/SceneGuard.h"
#include "tests/support/LogRecorder.h"

#include <qkt/QKTDockWindowManager.h>
#include <qkt/QKTWheelPrec.h>

#include <QListWidget>
#include <QMainWindow>
#include <QTemporaryDir>

#include <functional>
#include <sstream>
#include <string>

namespace kt::test
{

/// What is printed through std::cout for as long as it lives.
class Printed
{
public:
    Printed();
    ~Printed();
    Printed(const Printed&) = delete;
    Printed& operator=(const Printed&) = delete;

    /// And forgets it.
    std::string take();

private:
    std::ostringstream _text;
    std::streambuf* _before;
};

/// The host as the program puts it together without a window, with the built plug-in in it, and a folder for
/// its files. One for the whole process, as Python is.
class RealHost
{
public:
    RealHost();

    /// As after the start: nothing is open, the clock is at 0, the panel shows nothing, the folder has
    /// nothing but the broken scene.
    void putBack();

    QString path(const QString& name) const;
    void write(const QString& name, const std::string& bytes) const;

    /// The line of error of what the host throws; empty where it throws nothing.
    static std::string failureOf(const std::function<void()>& action);

    /// What the script prints as the value of the expression, or the type and the text of the exception.
    std::string ask(const std::string& expression);

    QWidget& panel() const;

    template <class Widget>
    Widget& child(const char* name) const
    {
        return *panel().findChild<Widget*>(QLatin1String(name));
    }

    QListWidget& list() const { return child<QListWidget>("_animationList"); }
    QKTWheelPrec& wheel(const char* name) const { return child<QKTWheelPrec>(name); }

private:
    QTemporaryDir _folder;
    QString _root;
    kthost::SceneGuard _guard;

public:
    LogRecorder log;
    Printed printed;
    kthost::Session session;
    kthost::KeyReporter keys;

private:
    kthost::Pictures _pictures{session};
    QMainWindow _window;
    QKTDockWindowManager _docks{&_window};
    kthost::PluginLoader _plugins;
    kthost::ActionRunner _runner{session, _pictures};
    kthost::Scripting _scripting{session, _runner};
};

} // namespace kt::test
