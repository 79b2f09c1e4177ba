// Scenes and projects in the window: menus, questions, title, answered as a user does.
#include "tests/app/window/WindowFixture.h"

#include "host/app/window/RecentFiles.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace
{

class DocumentsTest : public kt::test::WindowFixture
{
protected:
    void SetUp() override
    {
        // Dialogs of the desktop are out of a test's reach.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        WindowFixture::SetUp();
        close();
        open(true);
        QFile::copy(example("door.wrl"), path("door.wrl"));
    }

    QString path(const char* name) const { return QDir(settings.folder.path()).canonicalPath() + '/' + name; }

    void put(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// What a user writes beside "Door".
    void comment(const char* text) const
    {
        auto* list = window->findChild<QListWidget*>("_animationList");
        list->setCurrentItem(list->findItems("Door", Qt::MatchExactly).value(0));
        auto* line = window->findChild<QLineEdit*>("_comment");
        line->clear();
        QTest::keyClicks(line, text);
    }

    QString commentOfDoor() const
    {
        auto* list = window->findChild<QListWidget*>("_animationList");
        list->clearSelection();
        list->setCurrentItem(list->findItems("Door", Qt::MatchExactly).value(0));
        return window->findChild<QLineEdit*>("_comment")->text();
    }

    /// What the user does with the next modal dialog. It runs once the dialog waits for events.
    template <class Dialog>
    void answer(const std::function<void(Dialog&)>& how)
    {
        auto* wait = new QTimer(window.get());
        QObject::connect(wait, &QTimer::timeout, window.get(), [this, wait, how] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            wait->deleteLater();
            wait->stop();
            ++answered;
            how(*dialog);
        });
        wait->start(0);
    }

    void press(QMessageBox::StandardButton button)
    {
        answer<QMessageBox>(
            [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
    }

    void type(const QString& file)
    {
        answer<QFileDialog>([file](QFileDialog& dialog) {
            dialog.findChild<QListView*>("listView")
                ->clearSelection(); // a chosen row would win over the name
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
            auto* buttons = dialog.findChild<QDialogButtonBox*>();
            const auto role = dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                             : QDialogButtonBox::Open;
            QTest::mouseClick(buttons->button(role), Qt::LeftButton);
        });
    }

    void shortcut(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }

    int answered = 0;
};

TEST_F(DocumentsTest, ANewProjectIsAskedForItsNameAndSaved)
{
    window->open(path("door.wrl"));
    comment("front");
    type(path("house"));

    shortcut(Qt::Key_S);

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.projectFile(), path("house.ktproj"));
    EXPECT_EQ(window->windowTitle(), "house.ktproj[*] - kthost");
    EXPECT_EQ(kthost::RecentFiles::list().value(0), path("house.ktproj"));
    EXPECT_FALSE(session.isModified());
}

TEST_F(DocumentsTest, ASavedProjectIsSavedAgainWithoutAQuestion)
{
    window->open(path("door.wrl"));
    session.save(path("p.ktproj"));
    comment("front");

    shortcut(Qt::Key_S);

    EXPECT_EQ(answered, 0);
    EXPECT_FALSE(session.isModified());
    window->open(path("p.ktproj"));
    EXPECT_EQ(commentOfDoor(), "front");
}

TEST_F(DocumentsTest, SaveAsGoesToAnotherFile)
{
    window->open(path("door.wrl"));
    session.save(path("p.ktproj"));
    type(path("q.ktproj"));

    shortcut(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.projectFile(), path("q.ktproj"));
    EXPECT_TRUE(QFile::exists(path("p.ktproj")));
}

TEST_F(DocumentsTest, TheTitleIsMarkedWhileThereAreUnsavedChanges)
{
    window->open(path("door.wrl"));
    EXPECT_FALSE(window->isWindowModified());

    comment("front");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->isWindowModified(); }));

    session.save(path("p.ktproj"));
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(DocumentsTest, ClosingTheWindowAsksAndCanBeCancelled)
{
    window->open(path("door.wrl"));
    comment("front");
    press(QMessageBox::Cancel);

    EXPECT_FALSE(window->close());

    EXPECT_EQ(answered, 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(commentOfDoor(), "front");
}

TEST_F(DocumentsTest, ClosingTheWindowCanGiveChangesUp)
{
    window->open(path("door.wrl"));
    session.save(path("p.ktproj"));
    const QDateTime before = QFileInfo(path("p.ktproj")).lastModified();
    comment("front");
    press(QMessageBox::Discard);

    EXPECT_TRUE(window->close());

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(QFileInfo(path("p.ktproj")).lastModified(), before);
}

TEST_F(DocumentsTest, WithoutChangesNothingIsAsked)
{
    window->open(path("door.wrl"));

    EXPECT_TRUE(window->close());

    EXPECT_EQ(answered, 0);
}

TEST_F(DocumentsTest, OpeningAnotherFileCanSaveFirst)
{
    window->open(path("door.wrl"));
    session.save(path("p.ktproj"));
    comment("front");
    press(QMessageBox::Save);

    window->open(path("door.wrl"));

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.projectFile(), "");
    window->open(path("p.ktproj"));
    EXPECT_EQ(commentOfDoor(), "front");
}

TEST_F(DocumentsTest, AFailedSaveKeepsTheWindowAndSaysWhy)
{
    window->open(path("door.wrl"));
    session.save(path("p.ktproj"));
    comment("front");
    ASSERT_TRUE(QFile::remove(path("p.ktproj")));
    ASSERT_TRUE(QDir().mkdir(path("p.ktproj")));
    press(QMessageBox::Save);

    EXPECT_FALSE(window->close());

    const auto boxes = window->findChildren<QMessageBox*>();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0]->text().contains("it is a folder")) << boxes[0]->text().toStdString();
}

TEST_F(DocumentsTest, AMissingSceneIsAskedForAndLinkedAnew)
{
    put("p.ktproj", R"({"formatVersion": 1, "scene": "gone.wrl"})");
    type(path("door.wrl"));

    window->open(path("p.ktproj"));

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.file(), path("door.wrl"));
    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    EXPECT_TRUE(session.isModified());
    shortcut(Qt::Key_S);
    session.close();
    window->open(path("p.ktproj"));
    EXPECT_EQ(session.file(), path("door.wrl"));
    EXPECT_EQ(answered, 1);
}

TEST_F(DocumentsTest, AMissingSceneThatNobodyFindsLeavesWhatIsOpen)
{
    window->open(path("door.wrl"));
    put("p.ktproj", R"({"formatVersion": 1, "scene": "gone.wrl"})");
    answer<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });

    window->open(path("p.ktproj"));

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.file(), path("door.wrl"));
    EXPECT_EQ(session.projectFile(), "");
    EXPECT_EQ(window->findChildren<QMessageBox*>().size(), 1);
}

TEST_F(DocumentsTest, TheOpenDialogOpensProjects)
{
    put("p.ktproj", R"({"formatVersion": 1, "scene": "door.wrl"})");
    type(path("p.ktproj"));

    shortcut(Qt::Key_O);

    EXPECT_EQ(answered, 1);
    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    EXPECT_EQ(window->windowTitle(), "p.ktproj[*] - kthost");
}

} // namespace
