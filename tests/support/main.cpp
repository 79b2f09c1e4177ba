// The main() of every test program: one QApplication for all its tests, and no Qt warning passes unnoticed.
#include "tests/support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!KT_TEST_ON_SCREEN)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    QStandardPaths::setTestModeEnabled(true); // settings and caches apart from the user's
    QApplication application(argc, argv);
    kt::test::QtWarnings::failTestsOnWarnings();
    return RUN_ALL_TESTS();
}
