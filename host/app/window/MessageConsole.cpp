#include "host/app/window/MessageConsole.h"

#include "host/app/FrameLoop.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktLog.h>
#include <kt/ktMessage.h>

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace kthost
{
namespace
{

constexpr int widestForm = 80; ///< Characters.

/// Other items in the list, the same text in the field.
void refill(QComboBox* box, QStringList items)
{
    items.removeDuplicates();
    const QString text = box->currentText();
    box->clear();
    box->addItems(items);
    if (text.isEmpty() && !items.isEmpty())
        box->setCurrentIndex(0);
    else
        box->setEditText(text);
}

} // namespace

MessageConsole::MessageConsole(FrameLoop& frames, QWidget* parent)
    : QWidget(parent),
      _frames(frames),
      _message(new QComboBox(this)),
      _animation(new QComboBox(this)),
      _send(new QPushButton(tr("&Send"), this)),
      _answer(new QLabel(this))
{
    auto* messageLabel = new QLabel(tr("&Message"), this);
    auto* animationLabel = new QLabel(tr("&Animation"), this);
    messageLabel->setBuddy(_message);
    animationLabel->setBuddy(_animation);
    for (QComboBox* box : {_message, _animation}) {
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        box->setMinimumContentsLength(12);
        connect(box->lineEdit(), &QLineEdit::returnPressed, this, &MessageConsole::send);
    }
    _message->setAccessibleName(tr("Message"));
    _animation->setAccessibleName(tr("Animation"));
    _answer->setAccessibleName(tr("What became of the message"));
    _answer->setWordWrap(true);
    connect(_send, &QPushButton::clicked, this, &MessageConsole::send);

    auto* form = new QWidget(this);
    form->setMaximumWidth(fontMetrics().averageCharWidth() * widestForm);
    auto* room = new QHBoxLayout(this);
    room->setContentsMargins(0, 0, 0, 0);
    room->addWidget(form, 1);
    room->addStretch();

    auto* layout = new QGridLayout(form);
    layout->addWidget(messageLabel, 0, 0);
    layout->addWidget(_message, 0, 1, 1, 2);
    layout->addWidget(animationLabel, 1, 0);
    layout->addWidget(_animation, 1, 1, 1, 2);
    layout->addWidget(_answer, 2, 1);
    layout->addWidget(_send, 2, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(3, 1);
    setFocusProxy(_message);
}

void MessageConsole::refresh()
{
    QStringList messages;
    for (const std::string& name : ktController::messageNames())
        messages << QString::fromStdString(name);
    refill(_message, messages);

    QStringList animations;
    for (const SceneSensor& entry : _frames.sensors())
        animations << QString::fromUtf8(NodeUtils::getName(entry.node));
    refill(_animation, animations);
}

void MessageConsole::send()
{
    const QByteArray name = _message->currentText().toUtf8();
    ktMessage message;
    message.set("animation-name", _animation->currentText().toStdString());
    const int reached = ktController::sendMessage(name.constData(), message);
    _answer->setText(reached == 0 ? tr("Nobody listens to \"%1\".").arg(_message->currentText())
                                  : tr("Sent \"%1\".").arg(_message->currentText()));
    ktLog::info("message %s for \"%s\": %d callbacks", name.constData(),
                qUtf8Printable(_animation->currentText()), reached);
}

void MessageConsole::showEvent(QShowEvent* event)
{
    refresh();
    QWidget::showEvent(event);
}

} // namespace kthost
