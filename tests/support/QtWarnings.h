#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QtGlobal>

namespace kt::test
{

/// Makes each warning that Qt logs during a test a failure of that test.
class QtWarnings
{
public:
    static void failTestsOnWarnings() { qInstallMessageHandler(handle); }

private:
    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type == QtDebugMsg || type == QtInfoMsg || isOfThePlatform(text))
            fprintf(stderr, "%s\n", qPrintable(text));
        else
            ADD_FAILURE() << "Qt warned: " << text.toStdString();
    }

    /// What the display tells of itself, not of our code.
    static bool isOfThePlatform(const QString& text)
    {
        return text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")) ||
               // A dialog is gone before the display, which has no window manager, gives it the keyboard.
               (text.startsWith(QLatin1String("QXcbConnection: XCB error")) &&
                text.contains(QLatin1String("SetInputFocus"))) ||
               text.startsWith(QLatin1String("This plugin does not support")) ||
               text.startsWith(QLatin1String("propagateSizeHints"));
    }
};

} // namespace kt::test
