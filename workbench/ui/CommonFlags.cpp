#include "ui/CommonFlags.h"

#include <QPalette>
#include <QWidget>

namespace ui {

using kernel::ValueList;

namespace {

bool isShown(const QWidget& widget)
{
    return widget.isWindow() ? widget.isVisible() : !widget.isHidden();
}

void setWidth(QWidget& widget, Kind kind, int width)
{
    switch (kind) {
    case Kind::Window: widget.resize(width, widget.height()); break;
    case Kind::Control: widget.setFixedWidth(width); break;
    default: widget.setMinimumWidth(width);
    }
}

void setHeight(QWidget& widget, Kind kind, int height)
{
    switch (kind) {
    case Kind::Window: widget.resize(widget.width(), height); break;
    case Kind::Control: widget.setFixedHeight(height); break;
    default: widget.setMinimumHeight(height);
    }
}

void setBackground(QWidget& widget, const QColor& colour)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::Button, colour);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

ControlFlag shownFlag(const char* longName, const char* shortName)
{
    return {{longName, shortName, "b"},
            [](const Subject& s, const ValueList& values) { s.as<QWidget>().setVisible(truth(values)); },
            [](const Subject& s) { return int(isShown(s.as<QWidget>())); }};
}

}  // namespace

const std::vector<ControlFlag>& commonFlags()
{
    static const std::vector<ControlFlag> flags = withNameFlags<Subject>({
        {{"enable", "en", "b"},
         [](const Subject& s, const ValueList& values) { s.as<QWidget>().setEnabled(truth(values)); },
         [](const Subject& s) { return int(s.as<QWidget>().isEnabled()); }},
        shownFlag("visible", "vis"),
        shownFlag("manage", "m"),
        {{"isObscured", "io"}, nullptr, [](const Subject& s) { return int(!s.as<QWidget>().isVisible()); }},
        {{"width", "w", "i"},
         [](const Subject& s, const ValueList& values) { setWidth(s.as<QWidget>(), s.object.kind, whole(values)); },
         [](const Subject& s) { return s.as<QWidget>().width(); }},
        {{"height", "h", "i"},
         [](const Subject& s, const ValueList& values) { setHeight(s.as<QWidget>(), s.object.kind, whole(values)); },
         [](const Subject& s) { return s.as<QWidget>().height(); }},
        {{"annotation", "ann", "s"},
         [](const Subject& s, const ValueList& values) { s.as<QWidget>().setToolTip(text(values)); },
         [](const Subject& s) { return s.as<QWidget>().toolTip().toStdString(); }},
        {{"backgroundColor", "bgc", "fff"},
         [](const Subject& s, const ValueList& values) { setBackground(s.as<QWidget>(), colour(values)); },
         [](const Subject& s) {
             const QColor shown = s.as<QWidget>().palette().color(QPalette::Window);
             return kernel::DoubleArray{shown.redF(), shown.greenF(), shown.blueF()};
         }},
    });
    return flags;
}

}  // namespace ui
