#pragma once

#include <QColor>
#include <QWidget>

#include <array>

class QHBoxLayout;
class QLabel;
class QSlider;

namespace ui {

class ColourSwatch;

/// A label, a swatch that opens a dialog to pick a colour, and a slider of its brightness.
class ColourSlider : public QWidget {
    Q_OBJECT

public:
    explicit ColourSlider(QWidget* parent = nullptr);

    using Rgb = std::array<double, 3>;  ///< red, green, blue, each 0 to 1
    const Rgb& rgb() const { return m_rgb; }
    /// Tells nobody.
    void setRgb(const Rgb& rgb);
    QString label() const;
    void setLabel(const QString& label);
    /// column: 0 label, 1 swatch, 2 slider. Pixels; 0 hides the column.
    void setColumnWidth(int column, int width);
    /// The column that takes the room left over.
    void setAdjustableColumn(int column);
    void setLabelAlignment(Qt::Alignment alignment);

signals:
    /// The user picked a colour or let go of the slider.
    void Changed();
    /// The slider is being dragged.
    void Dragged();

private slots:
    void OpenDialog();
    void Pick(const QColor& colour);
    void SetBrightness(int value);
    void EndDrag();

private:
    void show(const Rgb& rgb);

    Rgb m_rgb = {};
    Rgb m_bright = {1, 1, 1};  ///< the colour at full brightness; kept while the slider is at the dark end
    QLabel* m_label;
    ColourSwatch* m_swatch;
    QSlider* m_slider;
    QHBoxLayout* m_row;
    bool m_isLabelHidden = false;  ///< its column has no width, so that a new label does not show it
    bool m_isFollowing = false;    ///< the slider is being set to a colour
};

}  // namespace ui
