#pragma once

#include "kernel/Session.h"

#include <QObject>

#include <functional>
#include <string>

class QWidget;

namespace app {

/// What the File menu asks the user before it acts: new, open, save, save as, import, create reference. Changes that
/// would be lost are asked about first. Each is a command of scripts, too (NewScene, OpenScene, ...), which is over at
/// once: the dialog comes when the script has ended, and what it leads to is an action of its own.
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

private:
    /// Asks for a scene file; empty when the user thought better of it.
    std::string chooseScene(const QString& title);
    QString folder() const;

    kernel::Session& m_session;
    QWidget* const m_window;
    const std::function<bool(const std::string&)> m_run;
};

}  // namespace app
