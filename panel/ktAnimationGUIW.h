#pragma once

#include "panel/Ui_ktAnimationGUI.h"

#include <QMainWindow>

/// The module's panel. All behaviour is the module's, which reaches the widgets by their members.
class ktAnimationGUIW : public QMainWindow, public Ui::ktAnimationGUI
{
    Q_OBJECT

public:
    ktAnimationGUIW(QWidget* parent, Qt::WindowFlags flags);
};
