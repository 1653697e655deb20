#pragma once

#include <QAbstractButton>
#include <QColor>

namespace ui {

/// A button that shows nothing but a colour.
class ColourSwatch : public QAbstractButton {
    Q_OBJECT

public:
    explicit ColourSwatch(QWidget* parent = nullptr);

    const QColor& colour() const { return m_colour; }
    void setColour(const QColor& colour);
    QSize sizeHint() const override { return QSize(40, 22); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_colour;
};

}  // namespace ui
