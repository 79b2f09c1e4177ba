#pragma once

#include "tests/support/LogRecorder.h"
#include "tests/support/Scene.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktModuleBase.h>
#include <qkt/QKTDockWindowManager.h>

#include <gtest/gtest.h>

#include <QListWidget>
#include <QMainWindow>

#include <dlfcn.h>

namespace kt::test
{

/// The built plug-in, loaded as a host does: by file, its entry points by name; nothing of its code is
/// linked.
class PluginFixture : public testing::Test
{
protected:
    PluginFixture() : library(dlopen(KT_PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL))
    {
        ktController::setMainWindow(&window, &docks);
        ktController::setSimulationTime(0.0);
        ktFileIO::clearProject();
        window.resize(900, 600);
    }

    ~PluginFixture() override
    {
        unload();
        ktFileIO::clearProject();
        ktController::setMainWindow(nullptr, nullptr);
    }

    void SetUp() override { ASSERT_NE(library, nullptr) << dlerror(); }

    template <class Function>
    Function entry(const char* name) const
    {
        return reinterpret_cast<Function>(dlsym(library, name));
    }

    void init() const { entry<void (*)()>("initPlugin")(); }

    /// Takes the panel out of the window first, as its code goes with the library.
    void unload()
    {
        if (!library)
            return;
        if (!ktModuleBase::modules().empty())
            docks.remove(ktModuleBase::modules()[0]->getWidget());
        dlclose(library);
        library = nullptr;
    }

    static ktModuleBase& module() { return *ktModuleBase::modules().at(0); }

    /// A child of the panel by its object name; null where there is none of the kind.
    template <class Widget = QWidget>
    static Widget* child(const char* name)
    {
        return module().getWidget()->findChild<Widget*>(name);
    }

    static QListWidget& list() { return *child<QListWidget>("_animationList"); }

    static QStringList rows()
    {
        QStringList texts;
        for (int i = 0; i < list().count(); ++i)
            texts << list().item(i)->text();
        return texts;
    }

    static void deliver(std::uint32_t id)
    {
        ktMessage message(id);
        ktController::deliver(message);
    }

    Scene scene;
    LogRecorder log;
    QMainWindow window;
    QKTDockWindowManager docks{&window};
    void* library;
};

} // namespace kt::test
