#pragma once

#include "kernel/Session.h"

#include <QObject>

#include <functional>
#include <string>

class QAction;
class QMenu;
class QWidget;

namespace app {

/// The File menu: new, open, save, save as, import, references, quit. Changes that would be lost are asked about first.
class FileActions : public QObject {
    Q_OBJECT

public:
    /// run: executes a text as a user's action and says whether it worked.
    FileActions(kernel::Session& session, QWidget* window, std::function<bool(const std::string&)> run);

    void fill(QMenu* menu);
    /// True when nothing would be lost: unchanged, saved, or given up by the user.
    bool mayDiscardScene();

public slots:
    void New();
    void Open();
    bool Save();
    bool SaveAs();
    void Import();
    void CreateReference();

private slots:
    void FillReferenceMenu();
    void RemoveReference(QAction* action);

private:
    /// Asks for a scene file; empty when the user thought better of it.
    std::string chooseScene(const QString& title);
    QString folder() const;

    kernel::Session& m_session;
    QWidget* const m_window;
    QMenu* m_references = nullptr;
    const std::function<bool(const std::string&)> m_run;
};

}  // namespace app
