#pragma once

#include "tests/model/Model.h"
#include "tests/model/Step.h"
#include "tests/support/PluginFixture.h"

#include <qkt/QKTWheelPrec.h>

#include <vector>

namespace kt::test
{

/// The built plug-in in its window, and the model beside it; a sensor of each name to begin with.
class Pair : public PluginFixture
{
public:
    Pair();
    void TestBody() override {}

    /// Does the step on both sides.
    void perform(const Step& step);

    /// Fails the property where they differ in anything that can be seen.
    void compare();

private:
    static QKTWheelPrec& wheel(const char* name) { return *child<QKTWheelPrec>(name); }

    void addNode(const std::string& name, bool isSensor);
    void load(const Step& step);
    void select(const Step& step);
    void pressInList(const Step& step);
    void chooseEntry(const Step& step);
    void chooseItem(const Step& step);

    Model model;
    std::vector<osg::NodePtr> nodes; ///< Beside model.scene.
};

} // namespace kt::test
