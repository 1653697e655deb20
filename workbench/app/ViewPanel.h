#pragma once

#include <QFrame>

namespace view {
class Viewport;
}

namespace app {

/// A view in its frame, which shows whether it is the one worked in.
class ViewPanel : public QFrame {
    Q_OBJECT

public:
    explicit ViewPanel(QWidget* parent = nullptr);

    void setView(view::Viewport* view);
    view::Viewport* view() const { return m_view; }
    void setActive(bool active);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    view::Viewport* m_view = nullptr;
    bool m_active = false;
};

}  // namespace app
