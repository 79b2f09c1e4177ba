// Random sequences of everything that reaches the built plug-in, beside a model of it; what can be seen is
// compared after each step. A sequence that fails is cut down to the shortest that still does.
//   RC_PARAMS="max_success=20000 max_size=100"   the long run: a million steps
//   RC_PARAMS="reproduce=..."                     what a failure prints, once more
#include "tests/model/Pair.h"

#include <kt/ktController.h>

#include <cstdlib>
#include <vector>

namespace kt::test
{
namespace
{

TEST(ModelTest, TheModuleDoesWhatTheModelDoesWhateverComes)
{
    // More than ten thousand steps.
    setenv("RC_PARAMS", "max_success=600 max_size=100", 0);
    std::size_t performed = 0;
    const bool holds = rc::check("the module does what the model does", [&](const std::vector<Step>& steps) {
        ktController::setSimulationTime(0.0);
        Pair pair;
        pair.compare();
        for (const Step& step : steps) {
            pair.perform(step);
            pair.compare();
            ++performed;
        }
    });
    EXPECT_TRUE(holds);
    RecordProperty("steps", std::to_string(performed));
}

} // namespace
} // namespace kt::test
