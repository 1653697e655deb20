#pragma once

#include <QMainWindow>

#include <string>

namespace ui {

class LayoutWidget;
class UiObjects;

/// A window that a script made. It stays above the main window, which gets the keys that nothing in here wants.
class ScriptWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit ScriptWindow(UiObjects& ui);

    LayoutWidget& content() const { return *m_content; }
    /// Runs after the user closed the window.
    void setCloseCommand(const std::string& script) { m_closeCommand = script; }
    /// Whether closing only hides it; otherwise it is deleted.
    void setRetained(bool on) { m_isRetained = on; }
    void setButton(Qt::WindowType button, bool on);
    void setSizeable(bool on);
    /// Shows or raises it.
    void present();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void handOn(QKeyEvent* event);

    UiObjects& m_ui;
    LayoutWidget* m_content;
    std::string m_closeCommand;
    bool m_isRetained = false;
};

}  // namespace ui
