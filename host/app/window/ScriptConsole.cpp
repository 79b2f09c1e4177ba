#include "host/app/window/ScriptConsole.h"

#include "host/app/HostError.h"
#include "host/app/Scripting.h"
#include "host/files/WholeSettings.h"
#include "host/scripting/Interpreter.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>

#include <algorithm>

namespace kthost
{
namespace
{

const char* const historyKey = "scripts/history";
constexpr int mostOutputLines = 10000;
constexpr int indent = 4; ///< Columns.

/// What all of the texts begin with.
QString commonStart(const QStringList& texts)
{
    QString start = texts.first();
    for (const QString& text : texts) {
        while (!text.startsWith(start))
            start.chop(1);
    }
    return start;
}

} // namespace

ScriptConsole::ScriptConsole(Scripting& scripting, QWidget* parent)
    : QWidget(parent),
      _scripting(scripting),
      _output(new QPlainTextEdit(this)),
      _prompt(new QLabel(this)),
      _input(new QLineEdit(this)),
      _history(QSettings().value(QLatin1String(historyKey)).toStringList()),
      _recalled(_history.size())
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QWidget* widget :
         {static_cast<QWidget*>(_output), static_cast<QWidget*>(_prompt), static_cast<QWidget*>(_input)})
        widget->setFont(font);
    _output->setReadOnly(true);
    _output->setMaximumBlockCount(mostOutputLines);
    _output->setAccessibleName(tr("What scripts printed"));
    _input->setAccessibleName(tr("Python"));
    _input->setPlaceholderText(tr("Python: startAnimation(\"Door\")"));
    _input->installEventFilter(this);
    _prompt->setBuddy(_input);
    auto* stopButton = new QPushButton(tr("S&top"), this);
    stopButton->setToolTip(tr("Ends the script that is running"));
    connect(stopButton, &QPushButton::clicked, this, &ScriptConsole::stop);
    connect(_input, &QLineEdit::returnPressed, this, &ScriptConsole::enter);

    auto* layout = new QGridLayout(this);
    layout->addWidget(_output, 0, 0, 1, 3);
    layout->addWidget(_prompt, 1, 0);
    layout->addWidget(_input, 1, 1);
    layout->addWidget(stopButton, 1, 2);
    setFocusProxy(_input);
    setPrompt();

    scripting.setListener([this](const std::string& text, bool isError) {
        show(QString::fromUtf8(text.data(), static_cast<int>(text.size())), isError);
    });
}

void ScriptConsole::enter()
{
    if (_scripting.isRunning())
        return;
    const QString line = _input->text();
    _input->clear();
    show(_prompt->text() + line + QLatin1Char('\n'), false);
    remember(line);
    run(_begun + line);
}

void ScriptConsole::run(const QString& text)
{
    try {
        ScriptOutcome outcome;
        const bool isWhole = _scripting.interpreter().runTyped(text.toStdString(), outcome);
        _begun = isWhole ? QString() : text + QLatin1Char('\n');
        setPrompt();
        if (isWhole && outcome.kind == ScriptOutcome::Exit)
            emit exitAsked(outcome.status);
    } catch (const HostError& error) {
        show(QString::fromUtf8(error.what()) + QLatin1Char('\n'), true);
    }
}

void ScriptConsole::complete()
{
    if (_scripting.isRunning())
        return;
    const QString before = _input->text().left(_input->cursorPosition());
    const QString name =
        QRegularExpression(QStringLiteral("[A-Za-z_][A-Za-z_0-9.]*$")).match(before).captured();
    if (name.isEmpty()) {
        _input->insert(QString(indent, QLatin1Char(' ')));
        return;
    }
    try {
        const QStringList found = _scripting.interpreter().completions(name);
        if (found.isEmpty())
            return;
        _input->insert(commonStart(found).mid(name.size()));
        if (found.size() > 1)
            show(found.join(QStringLiteral("  ")) + QLatin1Char('\n'), false);
    } catch (const HostError& error) {
        show(QString::fromUtf8(error.what()) + QLatin1Char('\n'), true);
    }
}

void ScriptConsole::stop()
{
    _scripting.interrupt();
    if (_scripting.isRunning() || _begun.isEmpty())
        return;
    _begun.clear(); // nothing runs, but something was begun
    setPrompt();
}

void ScriptConsole::show(const QString& text, bool isError)
{
    QTextCursor cursor(_output->document());
    cursor.movePosition(QTextCursor::End);
    QTextCharFormat format;
    if (isError)
        format.setForeground(Qt::darkRed);
    cursor.insertText(text, format);
    _output->moveCursor(QTextCursor::End);
}

void ScriptConsole::setPrompt()
{
    _prompt->setText(_begun.isEmpty() ? QStringLiteral(">>> ") : QStringLiteral("... "));
}

void ScriptConsole::remember(const QString& line)
{
    if (!line.trimmed().isEmpty() && (_history.isEmpty() || _history.last() != line)) {
        _history << line;
        while (_history.size() > mostLines)
            _history.removeFirst();
        WholeSettings::set(QLatin1String(historyKey), _history);
    }
    _recalled = _history.size();
}

void ScriptConsole::recall(int step)
{
    _recalled = std::clamp(_recalled + step, 0, static_cast<int>(_history.size()));
    _input->setText(_history.value(_recalled));
}

bool ScriptConsole::paste()
{
    QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    if (lines.size() < 2)
        return false; // the field's own way
    const QString last = lines.takeLast();
    for (const QString& line : lines) {
        _input->insert(line);
        enter();
    }
    _input->insert(last);
    return true;
}

bool ScriptConsole::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != _input || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* press = static_cast<QKeyEvent*>(event);
    if (press->matches(QKeySequence::Paste))
        return paste();
    switch (press->key()) {
    case Qt::Key_Tab:
        complete();
        return true;
    case Qt::Key_Up:
        recall(-1);
        return true;
    case Qt::Key_Down:
        recall(1);
        return true;
    default:
        return false;
    }
}

} // namespace kthost
