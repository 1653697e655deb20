#pragma once

#include <QFrame>

class QMenuBar;

namespace view {
class Viewport;
}  // namespace view

namespace ui {

/// A view and its menus in a frame, which shows whether it is the one worked in.
class ViewPanel : public QFrame {
    Q_OBJECT

public:
    explicit ViewPanel(QWidget* parent = nullptr);

    void setView(view::Viewport* view);
    view::Viewport* view() const { return m_view; }
    const QString& label() const { return m_label; }
    void setLabel(const QString& label) { m_label = label; }
    QMenuBar& menuBar() const { return *m_menuBar; }
    bool hasMenuBar() const { return m_hasMenuBar; }
    void setMenuBar(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    view::Viewport* m_view = nullptr;
    QString m_label;
    QMenuBar* m_menuBar;
    bool m_hasMenuBar = true;  ///< what scripts asked for, also while nothing is shown
};

}  // namespace ui
