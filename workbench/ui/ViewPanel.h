#pragma once

#include <QFrame>

namespace view {
class Viewport;
}  // namespace view

namespace ui {

/// A view in its frame, which shows whether it is the one worked in.
class ViewPanel : public QFrame {
    Q_OBJECT

public:
    explicit ViewPanel(QWidget* parent = nullptr);

    void setView(view::Viewport* view);
    view::Viewport* view() const { return m_view; }
    const QString& label() const { return m_label; }
    void setLabel(const QString& label) { m_label = label; }
    bool hasMenuBar() const { return m_hasMenuBar; }
    void setMenuBar(bool on) { m_hasMenuBar = on; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    view::Viewport* m_view = nullptr;
    QString m_label;
    bool m_hasMenuBar = true;  ///< what scripts asked for; the frame itself has none
};

}  // namespace ui
