#include "tests/app/window/WindowFixture.h"

#include "host/app/window/LogPanel.h"
#include "host/app/window/MessageConsole.h"
#include "host/app/window/RecentFiles.h"

#include <kt/ktSelectionManager.h>

#include <QAction>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>

namespace
{

class MainWindowTest : public kt::test::WindowFixture
{
protected:
    /// Drags files to a place and lets them go there, as the display hands it over. False where they are not
    /// welcome.
    bool drop(const QList<QUrl>& urls, const QPoint& place)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &drop);
        return true;
    }

    QPoint middleOfTheView() const
    {
        return window->view().mapTo(window.get(), window->view().rect().center());
    }

    QList<QMessageBox*> boxes() const { return window->findChildren<QMessageBox*>(); }

    QString writeFile(const QString& name, const QByteArray& text)
    {
        QFile file(settings.folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
};

} // namespace

TEST_F(MainWindowTest, ItsTitleNamesTheSceneThatIsOpen)
{
    EXPECT_EQ(window->windowTitle(), "kthost[*]");

    window->open(example("door.wrl"));
    EXPECT_EQ(window->windowTitle(), "door.wrl[*] - kthost");

    session.close();
    EXPECT_EQ(window->windowTitle(), "kthost[*]");
}

TEST_F(MainWindowTest, AnOpenedSceneIsAmongTheRecentFiles)
{
    window->open(example("door.wrl"));

    EXPECT_EQ(kthost::RecentFiles::list().value(0), QFileInfo(example("door.wrl")).absoluteFilePath());
}

TEST_F(MainWindowTest, AFileThatDoesNotLoadKeepsTheSceneAndShowsOneBox)
{
    window->open(example("door.wrl"));

    window->open(writeFile("broken.wrl", "#VRML V2.0 utf8\nTransform { oops }"));

    EXPECT_EQ(window->windowTitle(), "door.wrl[*] - kthost");
    EXPECT_FALSE(ktScenegraph::findNodes("Door").empty());
    ASSERT_EQ(boxes().size(), 1);
    EXPECT_TRUE(boxes().first()->text().contains("broken.wrl"));
    boxes().first()->close();
}

TEST_F(MainWindowTest, WhileASceneIsBeingOpenedEachStepIsOnTheDisplay)
{
    const QString file = writeFile("big.wrl", "#VRML V2.0 utf8\n" + QByteArray("Group {}\n").repeated(5000));
    const auto onTheDisplay = [&] {
        const QRect bar(window->statusBar()->geometry());
        return window->screen()
            ->grabWindow(window->winId(), bar.x(), bar.y(), bar.width(), bar.height())
            .toImage();
    };
    std::vector<QImage> seen{onTheDisplay()};
    const auto look = [&] { seen.push_back(onTheDisplay()); };
    int halves = 0;
    QObject::connect(&session, &kthost::Session::opening, window.get(), look);
    QObject::connect(&session, &kthost::Session::reading, window.get(), [&](double part) {
        if (part > 0.5 && halves++ == 0)
            look();
    });

    window->open(file);

    ASSERT_EQ(seen.size(), 6U); // before, reading, half of it, building, announcing, ended
    for (std::size_t i = 1; i + 1 < seen.size(); ++i)
        EXPECT_NE(seen[i], seen[i - 1]) << i;
}

TEST_F(MainWindowTest, APanelThatIsInSightOffersWhatAnEditedSceneHas)
{
    window->open(example("door.wrl"));
    dock("Messages")->raise();
    ktScenegraph::setNodeName(true, node("Door"), "Gate", true);

    session.frames().announceSceneChange();

    QStringList offered;
    for (QComboBox* box : panel<kthost::MessageConsole>()->findChildren<QComboBox*>()) {
        for (int i = 0; i < box->count(); ++i)
            offered << box->itemText(i);
    }
    EXPECT_TRUE(offered.contains("Gate")) << offered.join(' ').toStdString();
    EXPECT_FALSE(offered.contains("Door"));
}

TEST_F(MainWindowTest, ASceneThatIsEditedKeepsTheTreesBranchesAndSelection)
{
    window->open(example("door.wrl"));
    QTreeView& tree = window->sceneTree().view();
    tree.expandAll();
    ktSelectionManager::selectNodes({node("Door")});
    const QModelIndexList selected = tree.selectionModel()->selectedIndexes();
    ASSERT_EQ(selected.size(), 1);
    tree.collapse(tree.model()->index(0, 0).model()->index(0, 0, tree.model()->index(0, 0)));
    const auto open = [&] {
        int count = 0;
        QModelIndex row = tree.model()->index(0, 0);
        for (; row.isValid(); row = tree.indexBelow(row))
            count += tree.isExpanded(row) ? 1 : 0;
        return count;
    };
    const int before = open();
    ASSERT_GT(before, 0);

    ktScenegraph::setNodeName(true, node("Door"), "Gate", true);
    session.frames().announceSceneChange();

    EXPECT_EQ(open(), before);
    ASSERT_EQ(tree.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(tree.selectionModel()->selectedIndexes().first().data().toString(), "Gate");
}

TEST_F(MainWindowTest, AViewThatStandsStillIsDrawnToItsLastCorner)
{
    const auto cornerOnTheDisplay = [&] {
        const QPoint corner = window->view().mapToGlobal(window->view().rect().bottomRight() - QPoint(3, 3));
        return window->screen()->grabWindow(0, corner.x(), corner.y(), 1, 1).toImage().pixelColor(0, 0);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return cornerOnTheDisplay() != QColor(Qt::black); }));

    window->resize(window->size() - QSize(100, 80));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cornerOnTheDisplay() != QColor(Qt::black); }));
    window->resize(window->size() + QSize(60, 90));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cornerOnTheDisplay() != QColor(Qt::black); }));
}

TEST_F(MainWindowTest, ASceneDroppedOnTheViewIsOpened)
{
    ASSERT_TRUE(drop({QUrl::fromLocalFile(example("door.wrl"))}, middleOfTheView()));

    EXPECT_TRUE(QTest::qWaitFor([&] { return window->windowTitle() == "door.wrl[*] - kthost"; }));
}

TEST_F(MainWindowTest, ASceneDroppedOnAPanelIsOpened)
{
    const QPoint tree = window->sceneTree().mapTo(window.get(), window->sceneTree().rect().center());

    ASSERT_TRUE(drop({QUrl::fromLocalFile(example("door.wrl"))}, tree));

    EXPECT_TRUE(QTest::qWaitFor([&] { return window->windowTitle() == "door.wrl[*] - kthost"; }));
}

TEST_F(MainWindowTest, SeveralFilesAndFilesOfOtherMachinesAreNotWelcome)
{
    const QUrl scene = QUrl::fromLocalFile(example("door.wrl"));

    EXPECT_FALSE(drop({scene, scene}, middleOfTheView()));
    EXPECT_FALSE(drop({QUrl("http://localhost/door.wrl")}, middleOfTheView()));
}

TEST_F(MainWindowTest, TheMessagesPanelOffersWhatThePluginsAndTheSceneHave)
{
    close();
    QSettings().clear();
    open(true);
    QStringList offered;
    const auto read = [&] {
        offered.clear();
        for (QComboBox* box : panel<kthost::MessageConsole>()->findChildren<QComboBox*>())
            offered << box->currentText();
    };
    read();
    EXPECT_TRUE(offered.join(' ').startsWith("animation")) << offered.join(' ').toStdString();

    window->open(example("door.wrl"));

    read();
    EXPECT_TRUE(offered.contains("Door")) << offered.join(' ').toStdString();
}

TEST_F(MainWindowTest, AClickOnTheWarningsShowsThemInTheLog)
{
    window->open(writeFile("a.wrl", "#VRML V2.0 utf8\nInline { url \"missing.wrl\" }"));
    dock("Messages")->raise();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dock("Log")->visibleRegion().isEmpty(); }));

    window->statusBar()->findChild<QToolButton*>()->click();

    EXPECT_TRUE(QTest::qWaitFor([&] { return !dock("Log")->visibleRegion().isEmpty(); }));
    const auto& panelOfTheLog = *panel<kthost::LogPanel>();
    EXPECT_TRUE(panelOfTheLog.toPlainText().contains("missing.wrl"));
    EXPECT_EQ(QApplication::focusWidget(), &panelOfTheLog);
}
