#pragma once

#include <QListWidgetItem>

/// A row of the animation list: shows an animation's name as its display-role data and nothing else.
class ktListViewItem : public QListWidgetItem
{
public:
    /// Appends itself to the list, which owns it from then on.
    explicit ktListViewItem(QListWidget* parent);

    /// The item's type value: 0 for every row of this module.
    virtual int rtti() const;

protected:
    bool _isMarked = false;
    bool _isLocked = false;

private:
    int _rtti = 0;
};
