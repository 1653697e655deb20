#include "app/FileActions.h"

#include "kernel/ImageSequence.h"
#include "kernel/SceneFile.h"
#include "kernel/Syntax.h"
#include "mel/builtins/Quoting.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QMessageBox>

namespace app {

namespace {

constexpr QSize kFileDialogSize(800, 480);
const char kSceneFilter[] = "Scenes (*.ma *.mb);;All files (*)";
const char kImportFilter[] = "Scenes and meshes (*.ma *.mb *.obj);;Scenes (*.ma *.mb);;Meshes (*.obj);;All files (*)";

const struct {
    const char* name;
    const char* slot;
} kCommands[] = {
    {"NewScene", "New"},
    {"OpenScene", "Open"},
    {"SaveScene", "Save"},
    {"SaveSceneAs", "SaveAs"},
    {"Import", "Import"},
    {"CreateReference", "CreateReference"},
    {"CreateImagePlane", "CreateImagePlane"},
    {"SourceScript", "SourceScript"},
};

struct SaveFilter {
    const char* text;
    kernel::SceneFileType type;
};
const SaveFilter kSaveFilters[] = {
    {"Scene, text (*.ma)", kernel::SceneFileType::Ascii},
    {"Scene, binary (*.mb)", kernel::SceneFileType::Binary},
};

/// The save dialog's filters, one of which chooses the type of the file.
class TypeFilters {
public:
    explicit TypeFilters(QFileDialog& dialog) : m_dialog(dialog)
    {
        QStringList texts;
        for (const SaveFilter& filter : kSaveFilters) {
            texts << FileActions::tr(filter.text);
        }
        dialog.setNameFilters(texts);
        // A name without a suffix gets that of the type.
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [this] { setSuffix(); });
    }

    void choose(kernel::SceneFileType type)
    {
        for (const SaveFilter& filter : kSaveFilters) {
            if (filter.type == type) {
                m_dialog.selectNameFilter(FileActions::tr(filter.text));
            }
        }
        setSuffix();
    }

    kernel::SceneFileType type() const
    {
        const int row = m_dialog.nameFilters().indexOf(m_dialog.selectedNameFilter());
        return kSaveFilters[row < 0 ? 0 : row].type;
    }

private:
    void setSuffix() { m_dialog.setDefaultSuffix(kernel::fileTypeExtension(type()) + 1); }

    QFileDialog& m_dialog;
};

/// The pictures that can be read here, whatever packages make that possible.
QString pictureFilter()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        patterns << "*." + QString::fromLatin1(format);
    }
    return FileActions::tr("Images (%1);;All files (*)").arg(patterns.join(' '));
}

/// Runs a dialog and gives the keyboard back to the window, which without a window manager nobody else does.
int runDialog(QDialog& dialog, QWidget* window)
{
    const int answer = dialog.exec();
    window->activateWindow();
    return answer;
}

}  // namespace

FileActions::FileActions(kernel::Session& session, QWidget* window, std::function<bool(const std::string&)> run)
    : QObject(window), m_session(session), m_window(window), m_run(std::move(run))
{
    for (const auto& row : kCommands) {
        m_session.commands.add(row.name, [this, slot = row.slot](const kernel::ValueList& args) -> kernel::Value {
            kernel::parsedOrThrow(kernel::Syntax(), args);
            QMetaObject::invokeMethod(this, slot, Qt::QueuedConnection);
            return {};
        });
    }
}

FileActions::~FileActions()
{
    for (const auto& row : kCommands) {
        m_session.commands.remove(row.name);
    }
}

bool FileActions::mayDiscardScene()
{
    if (!m_session.scene.isModified()) {
        return true;
    }
    const QString name = QFileInfo(QString::fromStdString(m_session.scene.fileName())).fileName();
    QMessageBox question(QMessageBox::NoIcon, tr("Unsaved Changes"),
                         tr("Save changes to %1?").arg(name.isEmpty() ? tr("untitled scene") : name),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_window);
    question.setInformativeText(tr("What is not saved is lost."));
    question.setDefaultButton(QMessageBox::Save);
    for (QAbstractButton* button : question.buttons()) {
        button->setIcon(QIcon());
    }
    switch (runDialog(question, m_window)) {
    case QMessageBox::Save: return Save();
    case QMessageBox::Discard: return true;
    default: return false;
    }
}

void FileActions::New()
{
    if (mayDiscardScene()) {
        m_run("file -force -new");
    }
}

void FileActions::Open()
{
    if (!mayDiscardScene()) {
        return;
    }
    const std::string path = chooseFile(tr("Open"), folder(), tr(kSceneFilter));
    if (!path.empty()) {
        m_run("file -force -open " + mel::quoted(path));
    }
}

std::string FileActions::chooseFile(const QString& title, const QString& folder, const QString& filter)
{
    QFileDialog dialog(m_window, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.resize(kFileDialogSize);
    const bool isChosen = runDialog(dialog, m_window) == QDialog::Accepted;
    return isChosen ? dialog.selectedFiles().value(0).toStdString() : std::string();
}

void FileActions::Import()
{
    const std::string path = chooseFile(tr("Import"), folder(), tr(kImportFilter));
    if (!path.empty()) {
        m_run("file -import " + mel::quoted(path));
    }
}

void FileActions::CreateReference()
{
    const std::string path = chooseFile(tr("Create Reference"), folder(), tr(kSceneFilter));
    if (!path.empty()) {
        m_run("file -reference " + mel::quoted(path));
    }
}

void FileActions::CreateImagePlane()
{
    const view::Viewports* const views = view::Viewports::installed();
    const view::Viewport* const active = views ? views->active() : nullptr;
    const kernel::NodePtr camera = active ? active->camera() : nullptr;
    if (!camera || !camera->parent()) {
        m_session.output.error("There is no view whose camera could have an image plane.");
        return;
    }
    const std::string name = m_session.scene.fullPath(*camera->parent());  // a script may delete it meanwhile
    const std::string path = chooseFile(tr("Image Plane"), folder(), pictureFilter());
    if (!path.empty()) {
        m_run("createImagePlane " + mel::quoted(name) + ' ' + mel::quoted(path)
              + (kernel::isOfSequence(path) ? " 1" : " 0"));
    }
}

void FileActions::SourceScript()
{
    const std::string path = chooseFile(tr("Source Script"), QDir::currentPath(), tr("Scripts (*.mel);;All files (*)"));
    if (!path.empty()) {
        m_run("source " + mel::quoted(path));
    }
}

bool FileActions::Save()
{
    return m_session.scene.fileName().empty() ? SaveAs() : m_run("file -save");
}

bool FileActions::SaveAs()
{
    QFileDialog dialog(m_window, tr("Save As"), folder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    TypeFilters filters(dialog);
    filters.choose(kernel::fileTypeFor(m_session.scene, m_session.scene.fileName()));
    dialog.resize(kFileDialogSize);
    if (runDialog(dialog, m_window) != QDialog::Accepted) {
        return false;
    }
    const std::string path = dialog.selectedFiles().value(0).toStdString();
    const std::string before = m_session.scene.fileName();
    const kernel::SceneFileType chosen = kernel::fileTypeOfName(path).value_or(filters.type());
    const std::string type = mel::quoted(kernel::fileTypeName(chosen));
    if (m_run("file -rename " + mel::quoted(path) + "; file -save -type " + type)) {
        return true;
    }
    m_session.scene.setFileName(before);  // the next Save must not go where this one could not
    return false;
}

QString FileActions::folder() const
{
    const std::string& name = m_session.scene.fileName();
    return name.empty() ? QDir::currentPath() : QFileInfo(QString::fromStdString(name)).absolutePath();
}

}  // namespace app
