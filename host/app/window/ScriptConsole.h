#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace kthost
{

class Scripting;

/// Runs what is typed as Python, line by line, and shows what scripts print, wherever they were started. Up
/// and Down bring back earlier lines, those of earlier runs of the program too; Tab completes names.
class ScriptConsole : public QWidget
{
    Q_OBJECT

public:
    /// Older lines than these many are forgotten.
    static constexpr int mostLines = 500;

    /// `scripting` must outlive everything that the user does here; it may be gone when the console is
    /// destroyed.
    explicit ScriptConsole(Scripting& scripting, QWidget* parent = nullptr);

    /// Runs the line in the field. One that goes on is kept until a further one ends it. Nothing happens
    /// while a script runs.
    void enter();

    /// Completes the name before the cursor as far as it is certain, and lists what it may become.
    void complete();

    /// Ends the running script.
    void stop();

signals:
    /// What was typed asks for the end of the program.
    void exitAsked(int status);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void run(const QString& text);
    void show(const QString& text, bool isError);
    void remember(const QString& line);
    void recall(int step);
    bool paste();
    void setPrompt();

    Scripting& _scripting;
    QPlainTextEdit* _output;
    QLabel* _prompt;
    QLineEdit* _input;
    QString _begun; ///< Lines of a statement that goes on, with their ends.
    QStringList _history;
    int _recalled = 0; ///< The line of the history in the field; its size for a new one.
};

} // namespace kthost
