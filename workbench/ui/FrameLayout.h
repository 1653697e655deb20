#pragma once

#include "ui/LayoutWidget.h"

class QToolButton;

namespace ui {

class BoxLayout;

/// A heading with children below it, which it can fold away.
class FrameLayout : public LayoutWidget {
    Q_OBJECT

public:
    explicit FrameLayout(QWidget* parent = nullptr);

    void place(QWidget* child) override;
    void release(QWidget* child) override;
    QList<QWidget*> placed() const override;

    QString label() const;
    void setLabel(const QString& label);
    void setLabelVisible(bool on);
    void setCollapsable(bool on);
    bool isCollapsed() const;
    void setCollapsed(bool on);
    void setMarginWidth(int pixels);
    void setMarginHeight(int pixels);

private slots:
    void Toggle();

private:
    QToolButton* m_heading;
    BoxLayout* m_body;
    bool m_isCollapsable = false;
};

}  // namespace ui
