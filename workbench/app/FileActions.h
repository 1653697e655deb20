#pragma once

#include "kernel/Session.h"

#include <QObject>

#include <functional>
#include <string>

class QWidget;

namespace app {

/// What menus ask the user before they act on files: new, open, save, save as, import, create reference, create image
/// plane, source script. Changes that would be lost are asked about first. Each is a command of scripts, too (NewScene,
/// OpenScene, ...), which is over at once: the dialog comes when the script has ended, and what it leads to is an
/// action of its own.
class FileActions : public QObject {
    Q_OBJECT

public:
    /// run: executes a text as a user's action and says whether it worked.
    FileActions(kernel::Session& session, QWidget* window, std::function<bool(const std::string&)> run);
    ~FileActions() override;

    /// True when nothing would be lost: unchanged, saved, or given up by the user.
    bool mayDiscardScene();

public slots:
    void New();
    void Open();
    bool Save();
    bool SaveAs();
    void Import();
    void CreateReference();
    /// For the camera of the active view; a file that is one of a sequence stands for all of it.
    void CreateImagePlane();
    /// From the current folder: scripts do not lie beside scenes.
    void SourceScript();

private:
    /// Asks for a file; empty when the user thought better of it.
    std::string chooseFile(const QString& title, const QString& folder, const QString& filter);
    /// Of the scene, or the current one while that has no name.
    QString folder() const;

    kernel::Session& m_session;
    QWidget* const m_window;
    const std::function<bool(const std::string&)> m_run;
};

}  // namespace app
