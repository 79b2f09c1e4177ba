// A plug-in that does in the panel what a user's hands would, told by messages on the command line:
//   --send select=ANIMATION --send comment=TEXT --send startKey=D --send startModifier=Shift --send press=D
// Each word that is chosen is an entry of the panel's own boxes; a key is pressed with Shift.
#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktOSGWidget.h>

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QTest>

namespace
{

QString word(const ktMessage& message)
{
    std::string bytes;
    message.get("animation-name", bytes);
    return QString::fromStdString(bytes);
}

template <class Widget>
Widget& find(const char* name)
{
    return *ktController::getMainWindow()->findChild<Widget*>(name);
}

void select(ktMessage& message)
{
    auto& list = find<QListWidget>("_animationList");
    list.clearSelection();
    list.setCurrentItem(list.findItems(word(message), Qt::MatchExactly).value(0));
}

void comment(ktMessage& message)
{
    auto& line = find<QLineEdit>("_comment");
    line.clear();
    line.insert(word(message));
    QTest::keyClick(&line, Qt::Key_Return);
}

/// As by the keyboard: the entry at hand is told to who listens.
template <const char* const& Name>
void choose(ktMessage& message)
{
    auto& box = find<QComboBox>(Name);
    box.setCurrentIndex(box.findText(word(message)) - 1);
    QTest::keyClick(&box, Qt::Key_Down);
}

void press(ktMessage& message)
{
    const int key = word(message).at(0).unicode();
    QKeyEvent event(QEvent::KeyPress, key, Qt::ShiftModifier);
    ktOSGWidget::pressKey(key, 0, Qt::ShiftModifier, &event);
}

const char* const startKey = "_startKey";
const char* const startModifier = "_startModifier";
const char* const stopKey = "_stopKey";
const char* const stopModifier = "_stopModifier";

} // namespace

extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    ktController::addCB("select", select);
    ktController::addCB("comment", comment);
    ktController::addCB("startKey", choose<startKey>);
    ktController::addCB("startModifier", choose<startModifier>);
    ktController::addCB("stopKey", choose<stopKey>);
    ktController::addCB("stopModifier", choose<stopModifier>);
    ktController::addCB("press", press);
}
