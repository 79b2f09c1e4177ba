#include "host/vrml/CheckProgress.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace kthost
{
namespace
{

TEST(CheckProgressTest, IsSeenWhereItsMemoryIsHandedTo)
{
    CheckProgress guard;
    CheckProgress program(dup(guard.descriptor()));
    ASSERT_FALSE(guard.failed());
    ASSERT_FALSE(program.failed());
    EXPECT_EQ(guard.told(), 0U);
    program.tell(7);
    EXPECT_EQ(guard.told(), 7U);
    guard.reset();
    EXPECT_EQ(guard.told(), 0U);
}

TEST(CheckProgressTest, TellsOnceThatThePlaceAwaitedIsPassed)
{
    CheckProgress progress;
    EXPECT_FALSE(progress.tell(5));
    progress.await(7);
    EXPECT_FALSE(progress.tell(7));
    EXPECT_TRUE(progress.tell(8));
    EXPECT_FALSE(progress.tell(9));
}

TEST(CheckProgressTest, FailsWithoutMemory)
{
    EXPECT_TRUE(CheckProgress(-1).failed());
}

} // namespace
} // namespace kthost
