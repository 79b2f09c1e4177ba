// Random sequences of everything that reaches the built plug-in in the real host, beside a model of both;
// what can be seen is compared after each step. A sequence that fails is cut down to a short one that still
// does, and printed in words.
//   RC_PARAMS="max_success=40000 max_size=100"   the long run: a million steps
//   RC_PARAMS="reproduce=..."                     what a failure prints, once more
#include "tests/model/Chance.h"
#include "tests/model/Pair.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace kt::test
{
namespace
{

TEST(ModelTest, TheModuleInTheHostDoesWhatTheModelDoesWhateverComes)
{
    // More than ten thousand steps; a quarter of it with the sanitizers.
    setenv("RC_PARAMS", KT_IS_SANITIZED ? "max_success=100 max_size=100" : "max_success=420 max_size=100", 0);
    RealHost host;
    std::size_t performed = 0;
    const bool holds = rc::check("the module does what the model does", [&] {
        const Sequence sequence = *anySequence();
        Pair pair(host);
        pair.compare();
        for (const Step& step : sequence.steps) {
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
