#include "host/app/window/Documents.h"

#include "host/app/HostError.h"
#include "host/app/Session.h"
#include "host/app/window/RecentFiles.h"

#include <kt/ktLog.h>

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

namespace kthost
{
namespace
{

/// Milliseconds between two looks for unsaved changes: modules do not tell of them, they answer.
constexpr int betweenLooks = 1000;

QString sceneFilter()
{
    return Documents::tr("VRML97 scenes (*.wrl *.wrl.gz *.wrz *.vrml *.gz);;All files (*)");
}

QString openFilter()
{
    return Documents::tr(
               "Scenes and projects (*.wrl *.wrl.gz *.wrz *.vrml *.gz *.ktproj);;Projects (*.ktproj);;") +
           sceneFilter();
}

} // namespace

Documents::Documents(Session& session, QWidget& window) : QObject(&window), _session(session), _window(window)
{
    connect(&session, &Session::sceneReplaced, this, &Documents::showTitle);
    connect(&session, &Session::projectSaved, this, &Documents::showTitle);
    auto* looks = new QTimer(this);
    connect(looks, &QTimer::timeout, this, &Documents::showModified);
    looks->start(betweenLooks);
    showTitle();
}

void Documents::addActions(QMenu& menu)
{
    QAction* close = menu.addAction(tr("&Close"), this, &Documents::closeAll, QKeySequence::Close);
    menu.addSeparator();
    QAction* saveIt = menu.addAction(tr("&Save"), this, &Documents::save, QKeySequence(Qt::CTRL | Qt::Key_S));
    QAction* saveOther = menu.addAction(tr("Save &As..."), this, &Documents::saveAs,
                                        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    const auto follow = [this, close, saveIt, saveOther] {
        for (QAction* action : {close, saveIt, saveOther})
            action->setEnabled(!shownFile().isEmpty());
    };
    connect(&_session, &Session::sceneReplaced, close, follow);
    follow();
}

QString Documents::shownFile() const
{
    return _session.projectFile().isEmpty() ? _session.file() : _session.projectFile();
}

void Documents::openOrThrow(const QString& file)
{
    try {
        _session.open(file);
    } catch (const MissingSceneError& error) {
        const QString scene = askForScene(file, error.scene());
        if (scene.isEmpty())
            throw;
        _session.openWithScene(file, scene);
    }
}

void Documents::open(const QString& file)
{
    if (!mayLeave())
        return;
    try {
        openOrThrow(file);
    } catch (const HostError& error) {
        emit failed(QString::fromStdString(error.what()));
    }
}

void Documents::chooseAndOpen()
{
    const QString folder = QFileInfo(shownFile()).path();
    const QString file = QFileDialog::getOpenFileName(&_window, tr("Open"), folder, openFilter());
    if (!file.isEmpty())
        open(file);
}

QString Documents::askForScene(const QString& project, const QString& missing)
{
    const QString title =
        tr("%1 is not there: choose the scene of %2").arg(missing, QFileInfo(project).fileName());
    return QFileDialog::getOpenFileName(&_window, title, QFileInfo(project).path(), sceneFilter());
}

void Documents::closeAll()
{
    if (mayLeave())
        _session.close();
}

bool Documents::mayLeave()
{
    if (!_session.isModified())
        return true;
    const QString name = QFileInfo(shownFile()).fileName();
    QMessageBox question(QMessageBox::Question, tr("Unsaved changes"),
                         tr("%1 has changes that are not saved.").arg(name),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &_window);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(tr("Save them in the project?"));
    question.setDefaultButton(QMessageBox::Save);
    const int answer = question.exec();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

bool Documents::save()
{
    return _session.projectFile().isEmpty() ? saveAs() : saveTo(_session.projectFile());
}

bool Documents::saveAs()
{
    const QFileInfo shown(shownFile());
    QFileDialog dialog(&_window, tr("Save Project"), shown.path(), tr("Projects (*.ktproj)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("ktproj"));
    dialog.selectFile(shown.completeBaseName() + QLatin1String(".ktproj"));
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().value(0));
}

bool Documents::saveTo(const QString& file)
{
    try {
        _session.save(file);
    } catch (const HostError& error) {
        emit failed(QString::fromStdString(error.what()));
        return false;
    }
    emit saved(file);
    return true;
}

void Documents::showTitle()
{
    const QString file = shownFile();
    _window.setWindowFilePath(file);
    _window.setWindowTitle(file.isEmpty() ? QStringLiteral("kthost[*]")
                                          : tr("%1[*] - kthost").arg(QFileInfo(file).fileName()));
    showModified();
    if (!file.isEmpty())
        RecentFiles::add(file);
}

void Documents::showModified()
{
    _window.setWindowModified(_session.isModified());
}

} // namespace kthost
