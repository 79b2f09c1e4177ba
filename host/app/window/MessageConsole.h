#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace kthost
{

class FrameLoop;

/// Sends a named message for an animation, as other parts of a host would.
class MessageConsole : public QWidget
{
    Q_OBJECT

public:
    /// `frames` must outlive the console.
    explicit MessageConsole(FrameLoop& frames, QWidget* parent = nullptr);

    /// Offers the messages that plug-ins have registered, and the animations of the scene as it is now; what
    /// was typed stays.
    void refresh();

    /// Sends what is chosen and says how many callbacks it reached.
    void send();

protected:
    void showEvent(QShowEvent* event) override;

private:
    FrameLoop& _frames;
    QComboBox* _message;
    QComboBox* _animation;
    QPushButton* _send;
    QLabel* _answer;
};

} // namespace kthost
