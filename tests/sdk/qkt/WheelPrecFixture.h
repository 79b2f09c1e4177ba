#pragma once

#include <qkt/QKTWheelPrec.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

/// A number field in an active window, with a neighbour that can take the focus from it.
class WheelPrecFixture : public testing::Test
{
protected:
    WheelPrecFixture()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(wheel);
        layout->addWidget(neighbour);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
        neighbour->setFocus();
    }

    QLineEdit* field() const { return wheel->findChild<QLineEdit*>(); }

    /// The draggable wheel, which stands beside the text.
    QWidget* thumb() const { return wheel->layout()->itemAt(1)->widget(); }

    /// As a user starts to edit: the present text is selected, so that typing replaces it.
    void type(const char* text)
    {
        field()->setFocus();
        field()->selectAll();
        QTest::keyClicks(field(), QString::fromLatin1(text));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(field(), key, modifiers);
    }

    void turnMouseWheel(QWidget* under, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPointF point = under->rect().center();
        QWheelEvent event(point, under->mapToGlobal(point.toPoint()), QPoint(), QPoint(0, angle),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(
            &event); // as from the platform: only then does Qt offer it to the parents
        qApp->notify(under, &event);
    }

    /// Presses in the middle of the thumb wheel, moves by so many pixels and lets go.
    void drag(int pixels, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint start = thumb()->rect().center();
        QTest::mousePress(thumb(), Qt::LeftButton, modifiers, start);
        for (int moved = 0; moved != pixels; moved += pixels > 0 ? 1 : -1) {
            const QPointF at = start + QPoint(moved + (pixels > 0 ? 1 : -1), 0);
            QMouseEvent event(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton, modifiers);
            QApplication::sendEvent(thumb(), &event);
        }
        QTest::mouseRelease(thumb(), Qt::LeftButton, modifiers, start + QPoint(pixels, 0));
    }

    QWidget window;
    QKTWheelPrec* wheel = new QKTWheelPrec(&window);
    QLineEdit* neighbour = new QLineEdit(&window);
    QSignalSpy changes{wheel, &QKTWheelPrec::valueChanged};
};
