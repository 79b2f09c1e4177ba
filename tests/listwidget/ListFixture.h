#pragma once

#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <QMenu>
#include <QtTest>

namespace kt::test
{

/// The module with a sensor and a record each for Roof, Door and Fan; the panel is on the screen.
class ListFixture : public ModuleFixture
{
protected:
    ListFixture()
    {
        for (const char* name : {"Roof", "Door", "Fan"}) {
            sensors.push_back(&addTimeSensor(name));
            addRecord(name);
        }
        setSimulationTime(50.0);
        window.resize(900, 600);
        window.show();
        QApplication::processEvents();
    }

    QMenu& menu() const { return *list().findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly); }
    QAction& entry(int position) const { return *menu().actions().at(position); }

    QPoint centreOf(const char* row) const
    {
        return list().visualItemRect(list().findItems(row, Qt::MatchExactly).value(0)).center();
    }

    /// How many edits each sensor was told of: Roof, Door, Fan.
    std::vector<std::size_t> edits() const
    {
        std::vector<std::size_t> counts;
        for (const RecordingSensor* sensor : sensors)
            counts.push_back(sensor->changes.size());
        return counts;
    }

    std::vector<RecordingSensor*> sensors;
};

using Edits = std::vector<std::size_t>;

} // namespace kt::test
