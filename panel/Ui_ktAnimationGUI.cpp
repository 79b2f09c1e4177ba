#include "panel/Ui_ktAnimationGUI.h"

#include <QCoreApplication>

namespace
{

QString translated(const char* text)
{
    return QCoreApplication::translate("ktAnimationGUI", text, nullptr);
}

template <class Object>
Object* named(Object* object, const char* name)
{
    object->setObjectName(QString::fromLatin1(name));
    return object;
}

void setPolicy(QWidget* widget, QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical)
{
    QSizePolicy policy(horizontal, vertical);
    policy.setHeightForWidth(widget->sizePolicy().hasHeightForWidth());
    widget->setSizePolicy(policy);
}

QLabel* makeLabel(QWidget* parent, const char* name)
{
    QLabel* label = named(new QLabel(parent), name);
    label->setMinimumSize(130, 0);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setWordWrap(false);
    return label;
}

QComboBox* makeComboBox(QWidget* parent, const char* name)
{
    QComboBox* box = named(new QComboBox(parent), name);
    setPolicy(box, QSizePolicy::Preferred, QSizePolicy::Preferred);
    return box;
}

QKTWheelPrec* makeWheel(QWidget* parent, const char* name)
{
    QKTWheelPrec* wheel = named(new QKTWheelPrec(parent), name);
    setPolicy(wheel, QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    return wheel;
}

/// Takes up the room that its row or column leaves.
QFrame* makeFiller(QWidget* parent, const char* name, QSizePolicy::Policy horizontal,
                   QSizePolicy::Policy vertical)
{
    QFrame* filler = named(new QFrame(parent), name);
    setPolicy(filler, horizontal, vertical);
    filler->setFrameShape(QFrame::NoFrame);
    filler->setFrameShadow(QFrame::Plain);
    return filler;
}

QStringList modifierItems()
{
    QStringList items{QString()};
    for (const char* text : {"Shift", "Ctrl", "Alt", "Shift-Ctrl", "Shift-Alt", "Alt-Ctrl"})
        items << translated(text);
    return items;
}

QStringList keyItems()
{
    QStringList items{QString()};
    for (const char* key = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"; *key; ++key) {
        const char text[] = {*key, '\0'};
        items << translated(text);
    }
    return items;
}

void refill(QComboBox* box, const QStringList& items)
{
    box->clear();
    box->insertItems(0, items);
}

} // namespace

void Ui_ktAnimationGUI::setupUi(QMainWindow* window)
{
    if (window->objectName().isEmpty())
        window->setObjectName(QStringLiteral("ktAnimationGUI"));
    window->resize(744, 447);

    centralwidget = named(new QWidget(window), "centralwidget");
    buildListAndScrollArea();
    buildCommentFrame();
    buildHotkeyFrame();
    buildTimingFrame();
    frame_4 = makeFiller(scrollAreaWidgetContents, "frame_4", QSizePolicy::Preferred, QSizePolicy::Expanding);
    gridLayout_6->addWidget(frame_4, 3, 0, 1, 1);
    scrollArea->setWidget(scrollAreaWidgetContents);
    splitter->addWidget(scrollArea);
    gridLayout_7->addWidget(splitter, 0, 0, 1, 1);
    window->setCentralWidget(centralwidget);
    statusbar = named(new QStatusBar(window), "statusbar");
    window->setStatusBar(statusbar);

    retranslateUi(window);
    setFocusOrder();
    QMetaObject::connectSlotsByName(window);
}

void Ui_ktAnimationGUI::buildListAndScrollArea()
{
    gridLayout_7 = named(new QGridLayout(centralwidget), "gridLayout_7");
    gridLayout_7->setContentsMargins(0, 0, 0, 0);
    splitter = named(new QSplitter(centralwidget), "splitter");
    splitter->setOrientation(Qt::Horizontal);

    _animationList = named(new ktAnimationListWidget(splitter), "_animationList");
    setPolicy(_animationList, QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
    _animationList->setMinimumSize(110, 0);
    splitter->addWidget(_animationList);

    scrollArea = named(new QScrollArea(splitter), "scrollArea");
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setFrameShadow(QFrame::Plain);
    scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    scrollArea->setWidgetResizable(true);
    scrollAreaWidgetContents = named(new QWidget, "scrollAreaWidgetContents");
    scrollAreaWidgetContents->setGeometry(0, 0, 557, 417);
    gridLayout_6 = named(new QGridLayout(scrollAreaWidgetContents), "gridLayout_6");
}

void Ui_ktAnimationGUI::buildCommentFrame()
{
    collapsibleFrame = named(new QKTCollapsibleFrame(scrollAreaWidgetContents), "collapsibleFrame");
    page = named(new QWidget, "page");
    gridLayout = named(new QGridLayout(page), "gridLayout");
    textLabel1_2 = makeLabel(page, "textLabel1_2");
    gridLayout->addWidget(textLabel1_2, 0, 0, 1, 1);
    _comment = named(new QLineEdit(page), "_comment");
    setPolicy(_comment, QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    gridLayout->addWidget(_comment, 0, 1, 1, 1);
    collapsibleFrame->addPage(page);
    gridLayout_6->addWidget(collapsibleFrame, 0, 0, 1, 1);
}

void Ui_ktAnimationGUI::buildHotkeyFrame()
{
    collapsibleFrame_2 = named(new QKTCollapsibleFrame(scrollAreaWidgetContents), "collapsibleFrame_2");
    page_2 = named(new QWidget, "page_2");
    gridLayout_3 = named(new QGridLayout(page_2), "gridLayout_3");
    gridLayout_2 = named(new QGridLayout, "gridLayout_2");
    const struct
    {
        QLabel*& label;
        const char* labelName;
        QComboBox*& modifier;
        const char* modifierName;
        QComboBox*& key;
        const char* keyName;
        QFrame*& filler;
        const char* fillerName;
    } rows[] = {
        {textLabel1_3, "textLabel1_3", _startModifier, "_startModifier", _startKey, "_startKey", frame_2,
         "frame_2"},
        {textLabel1_4, "textLabel1_4", _stopModifier, "_stopModifier", _stopKey, "_stopKey", frame_3,
         "frame_3"},
    };
    int number = 0;
    for (const auto& row : rows) {
        row.label = makeLabel(page_2, row.labelName);
        gridLayout_2->addWidget(row.label, number, 0, 1, 1);
        row.modifier = makeComboBox(page_2, row.modifierName);
        gridLayout_2->addWidget(row.modifier, number, 1, 1, 1);
        row.key = makeComboBox(page_2, row.keyName);
        gridLayout_2->addWidget(row.key, number, 2, 1, 1);
        row.filler = makeFiller(page_2, row.fillerName, QSizePolicy::Expanding, QSizePolicy::Preferred);
        gridLayout_2->addWidget(row.filler, number, 3, 1, 1);
        ++number;
    }
    gridLayout_3->addLayout(gridLayout_2, 0, 0, 1, 1);
    collapsibleFrame_2->addPage(page_2);
    gridLayout_6->addWidget(collapsibleFrame_2, 1, 0, 1, 1);
}

void Ui_ktAnimationGUI::buildTimingFrame()
{
    collapsibleFrame_3 = named(new QKTCollapsibleFrame(scrollAreaWidgetContents), "collapsibleFrame_3");
    page_3 = named(new QWidget, "page_3");
    gridLayout_4 = named(new QGridLayout(page_3), "gridLayout_4");
    textLabel1_6 = makeLabel(page_3, "textLabel1_6");
    gridLayout_4->addWidget(textLabel1_6, 0, 0, 1, 1);
    _cycle_interval = makeWheel(page_3, "_cycle_interval");
    gridLayout_4->addWidget(_cycle_interval, 0, 1, 1, 1);
    textLabel1_5 = makeLabel(page_3, "textLabel1_5");
    gridLayout_4->addWidget(textLabel1_5, 1, 0, 1, 1);
    _fraction = makeWheel(page_3, "_fraction");
    gridLayout_4->addWidget(_fraction, 1, 1, 1, 1);
    collapsibleFrame_3->addPage(page_3);
    gridLayout_6->addWidget(collapsibleFrame_3, 2, 0, 1, 1);
}

void Ui_ktAnimationGUI::retranslateUi(QMainWindow* window)
{
    window->setWindowTitle(translated("VRML Animation"));
    collapsibleFrame->setCaption(translated("Properties"));
    textLabel1_2->setText(translated("Comment"));
    collapsibleFrame_2->setCaption(translated("Hotkeys"));
    textLabel1_3->setText(translated("Start"));
    textLabel1_4->setText(translated("(Un)Pause")); // what the stop hotkey does: it toggles
    collapsibleFrame_3->setCaption(translated("Animation"));
    textLabel1_6->setText(translated("Cycle Interval"));
    textLabel1_5->setText(translated("Keyframe"));

    // The texts of the items are joined into hotkey texts and looked for again by text; see ktHotkey.
    for (QComboBox* box : {_startModifier, _stopModifier})
        refill(box, modifierItems());
    for (QComboBox* box : {_startKey, _stopKey})
        refill(box, keyItems());
}

void Ui_ktAnimationGUI::setFocusOrder()
{
    QWidget* const order[] = {scrollArea,    _comment, _startModifier,  _startKey,
                              _stopModifier, _stopKey, _cycle_interval, _fraction};
    for (std::size_t i = 1; i < std::size(order); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
