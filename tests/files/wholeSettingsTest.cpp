#include "host/files/WholeSettings.h"

#include "tests/support/ProcessLimit.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QSize>
#include <QTemporaryDir>

using kthost::WholeSettings;

namespace
{

class WholeSettingsTest : public testing::Test
{
protected:
    WholeSettingsTest()
    {
        WholeSettings::use();
        QCoreApplication::setOrganizationName(QStringLiteral("house"));
        QCoreApplication::setApplicationName(QStringLiteral("tests"));
        QSettings::setPath(QSettings::defaultFormat(), QSettings::UserScope, folder.path());
    }

    ~WholeSettingsTest() override
    {
        QSettings::setDefaultFormat(QSettings::NativeFormat);
        QCoreApplication::setOrganizationName(QString());
        QCoreApplication::setApplicationName(QString());
    }

    QString fileName() const { return folder.filePath(QStringLiteral("house/tests.json")); }

    QByteArray bytes() const
    {
        QFile file(fileName());
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(WholeSettingsTest, KeepWhatTheyAreGiven)
{
    const QVariantMap given{{"text", QString::fromUtf8("a\"\n\u00e4")},
                            {"none", QString()},
                            {"list", QStringList{"a", "b"}},
                            {"noList", QStringList()},
                            {"yes", true},
                            {"bytes", QByteArray("\0\xff", 2)},
                            {"number", 7},
                            {"group/size", QSize(3, 4)}};
    {
        QSettings settings;
        for (auto entry = given.begin(); entry != given.end(); ++entry)
            settings.setValue(entry.key(), entry.value());
    }
    const QByteArray text = bytes();
    ASSERT_FALSE(text.isEmpty());
    ASSERT_TRUE(QFile::rename(fileName(), fileName() + ".kept"));
    EXPECT_TRUE(QSettings().allKeys().isEmpty());
    ASSERT_TRUE(QFile::rename(fileName() + ".kept", fileName()));

    const QSettings settings;
    EXPECT_EQ(settings.allKeys().size(), given.size());
    for (auto entry = given.begin(); entry != given.end(); ++entry)
        EXPECT_EQ(settings.value(entry.key()), entry.value()) << entry.key().toStdString();
}

TEST_F(WholeSettingsTest, StayWhereTheNewOnesDoNotFit)
{
    for (const int size : {100, 30000}) {
        QSettings().setValue("kept", QString(size, 'x'));
        const QByteArray before = bytes();
        QSettings settings;
        settings.setValue("more", true);
        {
            const kt::test::FileSizeLimit limit(80, SIG_IGN);
            settings.sync();
        }
        EXPECT_EQ(settings.status(), QSettings::AccessError) << size;
        EXPECT_EQ(bytes(), before) << size;
        settings.remove("more");
    }
}

TEST_F(WholeSettingsTest, ThatNobodyCanReadAreNone)
{
    QSettings().setValue("kept", true);
    for (const char* text : {"", "{", "[1]", R"({"a": 1, "b": null, "c": {}, "d": {"stream": "AAAA"}})"}) {
        QFile file(fileName());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_EQ(QSettings().value("a", "none").toString(), "none") << text;
        EXPECT_FALSE(QSettings().contains("kept")) << text;
    }
}
