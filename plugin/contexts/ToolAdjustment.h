#pragma once

#include "settings/ToolType.h"

#include <QPoint>

#include <maya/MUIDrawManager.h>

/// A drag that changes the size or the opacity of the active tool, with a preview at the place where it began.
class ToolAdjustment {
public:
    enum class Value { Size, Opacity };

    /// pressed: port pixels. scale: port pixels for each pixel of the canvas. drawManager: null in a legacy view.
    void begin(Value value, const QPoint& pressed, double scale, MHWRender::MUIDrawManager* drawManager);
    /// x: of the pointer by now, port pixels; ten of them change the value by one.
    void dragTo(int x, MHWRender::MUIDrawManager* drawManager);
    void end();

private:
    int value() const;
    void preview(MHWRender::MUIDrawManager* drawManager);
    void invertCircle(double radius);

    Value m_value = Value::Size;
    ToolType m_tool = ToolType::Pencil;
    int m_pressedValue = 0;
    QPoint m_pressed;
    double m_scale = 1.0;
    bool m_isInverted = false;  // a circle of this radius stands in a legacy view
    double m_invertedRadius = 0;
};
