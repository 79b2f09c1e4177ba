// What a user does in the panel.
#include "tests/model/Pair.h"
#include "tests/model/mustEqual.h"

#include <kt/ktModuleBase.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace kt::test
{

void Pair::perform(const SelectRows& step)
{
    std::set<int> rows;
    QItemSelection selection;
    const QListWidget& list = host.list();
    for (int row = 0; row < list.count(); ++row) {
        if (((step.rows >> (row % 6)) & 1U) == 0)
            continue;
        rows.insert(row);
        selection.select(list.model()->index(row, 0), list.model()->index(row, 0));
    }
    list.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    model.module.select(rows);
}

void Pair::perform(const PressInList& step)
{
    QTest::keyClick(&host.list(), static_cast<Qt::Key>(step.key));
    if (step.key == Qt::Key_Return)
        model.module.startSelected();
    else if (step.key == Qt::Key_Space)
        model.module.forSelected(&SceneModel::toggle);
    else if (step.key == Qt::Key_R)
        model.module.forSelected(&SceneModel::reset);
    else
        model.module.removeSelected();
}

void Pair::perform(const ChooseEntry& step)
{
    QAction* const action = host.list().findChild<QMenu*>()->actions().at(step.entry);
    if (!action->isEnabled())
        return;
    action->trigger();
    const std::function<void()> entries[] = {
        [this] { model.module.startSelected(); },
        [this] { model.module.forSelected(&SceneModel::toggle); },
        [this] { model.module.forSelected(&SceneModel::reset); },
        [this] { model.module.showSelectedNodes(); },
        [this] { model.module.removeSelected(); },
        [this] { model.module.scan(); },
        [this] { model.module.clear(); },
    };
    entries[step.entry]();
}

void Pair::perform(const DoubleClick& step)
{
    QListWidget& list = host.list();
    if (list.count() == 0)
        return;
    QListWidgetItem* const item = list.item(static_cast<int>(step.row) % list.count());
    QMetaObject::invokeMethod(&list, "itemDoubleClicked", Q_ARG(QListWidgetItem*, item));
    model.module.startSelected();
}

void Pair::perform(const RenameRow& step)
{
    const QListWidget& list = host.list();
    if (list.count() == 0)
        return;
    const int row = static_cast<int>(step.row) % list.count();
    QListWidgetItem* const item = list.item(row);
    item->setText(step.text);
    QMetaObject::invokeMethod(ktModuleBase::modules().at(0), "animationRenamed",
                              Q_ARG(QListWidgetItem*, item), Q_ARG(int, 0), Q_ARG(QString, step.text));
    model.module.renameRow(row, step.text);
}

void Pair::perform(const TypeComment& step)
{
    auto& comment = host.child<QLineEdit>("_comment");
    if (!comment.isEnabled())
        return;
    comment.setText(step.text);
    model.module.typeComment(step.text);
}

void Pair::perform(const ChooseItem& step)
{
    ModuleModel::Panel& panel = model.module.panel;
    ModuleModel::Box* const boxes[] = {&panel.startModifier, &panel.startKey, &panel.stopModifier,
                                       &panel.stopKey};
    const char* const boxNames[] = {"_startModifier", "_startKey", "_stopModifier", "_stopKey"};
    auto& box = host.child<QComboBox>(boxNames[step.box]);
    if (!box.isEnabled())
        return;
    ModuleModel::Box& shown = *boxes[step.box];
    const int item = static_cast<int>(step.item) % shown.items.size();
    box.setCurrentIndex(item);
    QMetaObject::invokeMethod(&box, "activated", Q_ARG(QString, box.currentText())); // it was the user
    shown.shown = shown.items[item];
    if (step.box < 2)
        model.module.chooseStart();
    else
        model.module.chooseStop();
}

void Pair::perform(const TurnCycleInterval& step)
{
    host.wheel("_cycle_interval").setValue(step.value);
    model.module.setCycleInterval(step.value);
}

void Pair::perform(const TurnFraction& step)
{
    host.wheel("_fraction").setValue(step.value);
    model.module.setFraction(step.value);
}

} // namespace kt::test
