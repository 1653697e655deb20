#include "ui/ColourSlider.h"

#include "ui/ColourSwatch.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr int kSteps = 1000;  // of the slider, dark to bright
constexpr int kColumns = 3;
constexpr int kGap = 4;

QColor toColour(const ColourSlider::Rgb& rgb)
{
    return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
}

double brightness(const ColourSlider::Rgb& rgb)
{
    return *std::max_element(rgb.begin(), rgb.end());
}

ColourSlider::Rgb scaled(const ColourSlider::Rgb& rgb, double by)
{
    const auto part = [by](double value) { return std::min(1.0, value * by); };
    return {part(rgb[0]), part(rgb[1]), part(rgb[2])};
}

}  // namespace

ColourSlider::ColourSlider(QWidget* parent)
    : QWidget(parent), m_label(new QLabel), m_swatch(new ColourSwatch), m_slider(new QSlider(Qt::Horizontal)),
      m_row(new QHBoxLayout(this))
{
    m_slider->setRange(0, kSteps);
    m_slider->setPageStep(kSteps / 10);
    m_slider->setMinimumWidth(60);
    m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_label->hide();
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(kGap);
    for (QWidget* part :
         {static_cast<QWidget*>(m_label), static_cast<QWidget*>(m_swatch), static_cast<QWidget*>(m_slider)}) {
        m_row->addWidget(part);
    }
    m_row->addStretch();
    setAdjustableColumn(2);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_swatch, SIGNAL(clicked()), this, SLOT(OpenDialog()));
    connect(m_slider, SIGNAL(valueChanged(int)), this, SLOT(SetBrightness(int)));
    connect(m_slider, SIGNAL(sliderReleased()), this, SLOT(EndDrag()));
    show(m_rgb);
}

void ColourSlider::setRgb(const Rgb& rgb)
{
    show({std::clamp(rgb[0], 0.0, 1.0), std::clamp(rgb[1], 0.0, 1.0), std::clamp(rgb[2], 0.0, 1.0)});
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_slider->setValue(int(std::lround(brightness(m_rgb) * kSteps)));
}

void ColourSlider::show(const Rgb& rgb)
{
    m_rgb = rgb;
    if (brightness(rgb) > 0) {
        m_bright = scaled(rgb, 1 / brightness(rgb));
    }
    m_swatch->setColour(toColour(rgb));
}

QString ColourSlider::label() const
{
    return m_label->text();
}

void ColourSlider::setLabel(const QString& label)
{
    m_label->setText(label);
    m_label->setVisible(!label.isEmpty() && !m_isLabelHidden);
}

void ColourSlider::setColumnWidth(int column, int width)
{
    QWidget* const part = m_row->itemAt(column)->widget();
    part->setVisible(width > 0);
    if (part == m_label) {
        m_isLabelHidden = width <= 0;
    }
    if (width > 0) {
        part->setFixedWidth(width);
    }
    m_row->setStretch(column, 0);
}

void ColourSlider::setAdjustableColumn(int column)
{
    for (int i = 0; i < kColumns; ++i) {
        m_row->setStretch(i, i == column ? 1 : 0);
    }
    QWidget* const part = m_row->itemAt(column)->widget();
    part->setMaximumWidth(QWIDGETSIZE_MAX);
}

void ColourSlider::setLabelAlignment(Qt::Alignment alignment)
{
    m_label->setAlignment(alignment | Qt::AlignVCenter);
}

void ColourSlider::OpenDialog()
{
    auto* const dialog = new QColorDialog(toColour(m_rgb), this);
    dialog->setOption(QColorDialog::DontUseNativeDialog);  // looks like the rest of the program
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, SIGNAL(colorSelected(QColor)), this, SLOT(Pick(QColor)));
    dialog->open();
}

void ColourSlider::Pick(const QColor& colour)
{
    setRgb({colour.redF(), colour.greenF(), colour.blueF()});
    emit Changed();
}

void ColourSlider::SetBrightness(int value)
{
    if (m_isFollowing) {
        return;
    }
    show(scaled(m_bright, double(value) / kSteps));
    if (m_slider->isSliderDown()) {
        emit Dragged();
    } else {
        emit Changed();
    }
}

void ColourSlider::EndDrag()
{
    emit Changed();
}

}  // namespace ui
