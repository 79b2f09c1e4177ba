#include "panel/ktAnimationGUIW.h"

ktAnimationGUIW::ktAnimationGUIW(QWidget* parent, Qt::WindowFlags flags) : QMainWindow(parent, flags)
{
    setWindowTitle(QStringLiteral("Module"));
    setupUi(this);
}
