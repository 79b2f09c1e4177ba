#pragma once

#include "listwidget/ktAnimationListWidget.h"

#include <qkt/QKTCollapsibleFrame.h>
#include <qkt/QKTWheelPrec.h>

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>

/// The panel's form: a list on the left; on the right three folding frames for comment, hotkeys and timing.
/// Written by hand, since its combo boxes are emptied and filled again at each retranslation. Every widget's
/// object name is its member's name.
class Ui_ktAnimationGUI
{
public:
    QWidget* centralwidget;
    QGridLayout* gridLayout_7;
    QSplitter* splitter;
    ktAnimationListWidget* _animationList;
    QScrollArea* scrollArea;
    QWidget* scrollAreaWidgetContents;
    QGridLayout* gridLayout_6;
    QKTCollapsibleFrame* collapsibleFrame;
    QWidget* page;
    QGridLayout* gridLayout;
    QLabel* textLabel1_2;
    QLineEdit* _comment;
    QKTCollapsibleFrame* collapsibleFrame_2;
    QWidget* page_2;
    QGridLayout* gridLayout_3;
    QGridLayout* gridLayout_2;
    QLabel* textLabel1_3;
    QComboBox* _startModifier;
    QComboBox* _startKey;
    QFrame* frame_2;
    QLabel* textLabel1_4;
    QComboBox* _stopModifier;
    QComboBox* _stopKey;
    QFrame* frame_3;
    QKTCollapsibleFrame* collapsibleFrame_3;
    QWidget* page_3;
    QGridLayout* gridLayout_4;
    QLabel* textLabel1_6;
    QKTWheelPrec* _cycle_interval;
    QLabel* textLabel1_5;
    QKTWheelPrec* _fraction;
    QFrame* frame_4;
    QStatusBar* statusbar;

    /// Builds the form in `window`, fills in the texts and sets the focus order. The widgets are the
    /// window's.
    void setupUi(QMainWindow* window);

    /// Sets title, captions, labels and combo box items again; the boxes go back to their empty first item.
    void retranslateUi(QMainWindow* window);

private:
    void buildListAndScrollArea();
    void buildCommentFrame();
    void buildHotkeyFrame();
    void buildTimingFrame();
    void setFocusOrder();
};

namespace Ui
{

class ktAnimationGUI : public Ui_ktAnimationGUI
{
};

} // namespace Ui
