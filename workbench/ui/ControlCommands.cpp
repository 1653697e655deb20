#include "ui/ColourSlider.h"
#include "ui/Commands.h"
#include "ui/ControlCommand.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <cmath>

namespace ui {

using kernel::DoubleArray;
using kernel::Value;
using kernel::ValueList;

namespace {

// --- colours -------------------------------------------------------------------------------------------------------

void setHsv(const Subject& subject, const ValueList& values)
{
    const auto part = [&](std::size_t i) { return std::clamp(number(values, i), 0.0, 1.0); };
    const double turns = number(values, 0) / 360;
    const QColor colour = QColor::fromHsvF(turns - std::floor(turns), part(1), part(2));
    subject.as<ColourSlider>().setRgb({colour.redF(), colour.greenF(), colour.blueF()});
}

DoubleArray rgbOf(const Subject& subject)
{
    const ColourSlider::Rgb& rgb = subject.as<ColourSlider>().rgb();
    return DoubleArray(rgb.begin(), rgb.end());
}

Value hsvOf(const Subject& subject)
{
    const DoubleArray rgb = rgbOf(subject);
    const QColor colour = QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
    // A grey has no hue of its own.
    return DoubleArray{std::max(0.0, double(colour.hsvHueF())) * 360, colour.hsvSaturationF(), colour.valueF()};
}

void setColumn(const Subject& subject, int column, int width)
{
    if (column >= 0 && column <= 2) {
        subject.as<ColourSlider>().setColumnWidth(column, width);
    }
}

ControlFlag::Set scriptSetter(const char* signal)
{
    return [signal](const Subject& s, const ValueList& values) {
        setScript(s, signal, kernel::toText(values.front()), [s] { return rgbOf(s); });
    };
}

void alignColumn(const Subject& subject, const ValueList& values)
{
    if (whole(values, 0) == 1) {
        const std::string side = kernel::toText(values[1]);
        subject.as<ColourSlider>().setLabelAlignment(side == "left"     ? Qt::AlignLeft
                                                     : side == "center" ? Qt::AlignHCenter
                                                                        : Qt::AlignRight);
    }
}

std::vector<ControlFlag> colourSliderFlags()
{
    return {
        {{"label", "l", "s"},
         [](const Subject& s, const ValueList& values) { s.as<ColourSlider>().setLabel(text(values)); },
         [](const Subject& s) { return s.as<ColourSlider>().label().toStdString(); }},
        {{"rgbValue", "rgb", "fff"},
         [](const Subject& s, const ValueList& values) {
             s.as<ColourSlider>().setRgb({number(values, 0), number(values, 1), number(values, 2)});
         },
         rgbOf},
        {{"hsvValue", "hsv", "fff"}, setHsv, hsvOf},
        {{"changeCommand", "cc", "s"}, scriptSetter(SIGNAL(Changed()))},
        {{"dragCommand", "dc", "s"}, scriptSetter(SIGNAL(Dragged()))},
        {{"adjustableColumn", "adj", "i"},
         [](const Subject& s, const ValueList& values) {
             s.as<ColourSlider>().setAdjustableColumn(std::clamp(whole(values), 1, 3) - 1);
         }},
        {{"columnWidth3", "cw3", "iii"},
         [](const Subject& s, const ValueList& values) {
             for (int column = 0; column < 3; ++column) {
                 setColumn(s, column, whole(values, std::size_t(column)));
             }
         }},
        {{"columnWidth", "cw", "ii", true},
         [](const Subject& s, const ValueList& values) { setColumn(s, whole(values, 0) - 1, whole(values, 1)); }},
        {{"columnAlign", "cal", "is", true}, alignColumn},
        {{"columnAttach", "cat", "isi", true}},
        {{"forceDragRefresh", "fdr", "b"}},
    };
}

// --- small ones ----------------------------------------------------------------------------------------------------

/// Of a widget whose text is its label.
ControlFlag labelFlag()
{
    return {{"label", "l", "s"},
            [](const Subject& s, const ValueList& values) { s.object.object->setProperty("text", text(values)); },
            [](const Subject& s) { return s.object.object->property("text").toString().toStdString(); }};
}

QWidget* makeSeparator(UiObjects&)
{
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setMinimumWidth(8);
    return line;
}

}  // namespace

void registerControls(UiObjects& ui)
{
    const auto add = [&](const char* command, std::vector<ControlFlag> flags, QWidget* (*make)(UiObjects&)) {
        addControlCommand(ui, {command, command, Kind::Control, std::move(flags), make});
    };
    add("colorSliderGrp", colourSliderFlags(), [](UiObjects&) -> QWidget* { return new ColourSlider; });
    add("text", {labelFlag(), {{"align", "al", "s"}}}, [](UiObjects&) -> QWidget* { return new QLabel; });
    add("button",
        {labelFlag(),
         {{"command", "c", "s"},
          [](const Subject& s, const ValueList& values) {
              setScript(s, SIGNAL(clicked()), kernel::toText(values.front()));
          }}},
        [](UiObjects&) -> QWidget* { return new QPushButton; });
    add("separator", {{{"style", "st", "s"}}, {{"horizontal", "hr", "b"}}}, &makeSeparator);
}

}  // namespace ui
