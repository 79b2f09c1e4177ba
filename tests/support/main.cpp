// The main() of every test program: one QApplication for all its tests, and no Qt warning passes unnoticed.
#include "tests/support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QStandardPaths>

#include <memory>

#ifdef KT_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

/// The one QApplication. Its platform's screens, and the fonts that are read here, are kept until the end on
/// purpose.
std::unique_ptr<QApplication> application(int& argc, char** argv)
{
#ifdef KT_LOOKS_FOR_LEAKS
    const __lsan::ScopedDisabler keptOnPurpose;
#endif
    auto made = std::make_unique<QApplication>(argc, argv);
    QFontInfo(QApplication::font()).family();
    return made;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!KT_TEST_ON_SCREEN)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    QStandardPaths::setTestModeEnabled(true); // settings and caches apart from the user's
    const auto theApplication = application(argc, argv);
    kt::test::QtWarnings::failTestsOnWarnings();
    const int result = RUN_ALL_TESTS();
#ifdef KT_LOOKS_FOR_LEAKS
    // Now, while caches still hold what they own, and the drivers are still loaded and can be named.
    __lsan_do_leak_check();
#endif
    return result;
}
