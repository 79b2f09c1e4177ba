#pragma once

#include "module/ktAnimation.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/Scene.h"

#include <qkt/QKTDockWindowManager.h>

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QStringList>

#include <memory>

class ktAnimationGUIW;
class ktAnimationListWidget;

namespace kt::test
{

/// The module with its registry open to the tests.
class OpenAnimation : public ktAnimation
{
public:
    using ktAnimation::_animations;
    using ktAnimation::_current;
};

/// A main window, an empty scene with a change list, the clock at 0, an empty project, and the module in it.
class ModuleFixture : public testing::Test
{
protected:
    ModuleFixture();
    ~ModuleFixture() override;

    OpenAnimation& module() { return *_module; }
    void destroyModule() { _module.reset(); }

    ktAnimationGUIW& panel() const;
    ktAnimationListWidget& list() const;

    RecordingSensor& addTimeSensor(const char* name) { return scene.addTimeSensor(name); }
    static void setSimulationTime(double seconds);

    /// A record of this name with nothing else in it, and its row.
    ktAnimationInfo& addRecord(const char* name);

    /// The names of the records, in registry order.
    QStringList records() const;

    /// The texts of the list's rows.
    QStringList rows() const;

    /// Selects exactly the rows with these texts.
    void select(const QStringList& texts) const;

    /// The fixture's time sensors change this list only; it is the thread's.
    Scene scene;
    LogRecorder log;
    QMainWindow window;
    QKTDockWindowManager docks{&window};

private:
    std::unique_ptr<OpenAnimation> _module;
};

} // namespace kt::test
