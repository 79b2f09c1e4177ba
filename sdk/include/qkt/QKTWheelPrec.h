#pragma once

#include <kt/Export.h>

#include <QWidget>

class QLineEdit;
class ThumbWheel;

/// A number field with a thumb wheel beside it: a precise real number within bounds.
///
/// The value is kept exactly as it was set; what the field shows is shortened for reading only: at least the
/// decimals of the step, at most six digits that count behind the point. A step goes to a whole multiple of
/// the step from the number that was last set or typed, so that many steps gather no rounding error.
///
/// By key, in the field: Up and Down make one step, Page Up and Page Down ten, Home and End go to a finite
/// bound (while a text is being typed they move the cursor instead). By mouse: drag the thumb wheel, or turn
/// the mouse's wheel; that one counts only while the field has the focus, so that scrolling past the field
/// changes nothing. Shift makes a step ten steps, Ctrl a tenth of one.
///
/// A typed text becomes the value with Return, or when the field loses the focus; not before, and it is not
/// overwritten by setValue() before. Escape drops it, as does a text that is no number. Numbers are read and
/// shown in the widget's locale(), without group separators; the decimal point of programs is always
/// understood as well.
///
/// It is named for assistive tools by its accessibleName or the label whose buddy it is or, failing both, by
/// the label before it in its grid row.
class KT_EXPORT QKTWheelPrec : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged USER true)
    Q_PROPERTY(double singleStep READ singleStep WRITE setSingleStep)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)

public:
    explicit QKTWheelPrec(QWidget* parent = nullptr);

    /// 0 at first.
    double value() const { return _value; }

    /// 1 at first.
    double singleStep() const { return _singleStep; }

    /// The lowest double, which stands for none, at first.
    double minimum() const { return _minimum; }

    /// The highest double, which stands for none, at first.
    double maximum() const { return _maximum; }

    /// One step of keys and wheels; ignored unless it is above 0 and finite.
    void setSingleStep(double step);

    /// A bound that crosses the other one moves it along; the value follows into the bounds. Infinity on its
    /// own side stands for no bound; other numbers that are not finite are ignored.
    void setMinimum(double minimum);
    void setMaximum(double maximum);

    /// What the field shows: the value, or what is being typed.
    QString text() const;

    /// Room for a dozen digits beside the wheel; in more room than that they keep to the leading side.
    QSize sizeHint() const override;

public slots:
    /// Held within the bounds. Not a number is ignored, and so is infinity where that side has no bound.
    void setValue(double value);

    /// Takes up a text that is being typed, then makes `steps` steps, downwards where negative, held within
    /// the bounds.
    void stepBy(int steps);

signals:
    /// Once each time the value becomes another one, by whomever.
    void valueChanged(double value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    bool goTo(double bound);
    void stepByTenths(qint64 tenths);
    void hold(double value);
    void textEdited();
    void commitText();
    void revertText();
    void showValue();
    void fitField();
    void markInvalid(bool invalid);

    QLineEdit* _field;
    ThumbWheel* _thumb;
    double _value = 0.0;
    double _singleStep = 1.0;
    double _minimum;
    double _maximum;
    double _anchor = 0.0; ///< The value is this number plus so many tenths of a step.
    qint64 _tenths = 0;
    int _wheelAngle = 0; ///< What is left of the mouse wheel's turning after whole notches.
    bool _typing = false;
};
