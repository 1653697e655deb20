#include "contexts/ToolAdjustment.h"

#include "contexts/AdjustmentPreview.h"
#include "settings/Panels.h"
#include "settings/Preferences.h"

#include <maya/M3dView.h>

namespace {

const int kPixelsPerStep = 10;

}

void ToolAdjustment::begin(Value value, const QPoint& pressed, double scale, MHWRender::MUIDrawManager* drawManager)
{
    end();
    m_value = value;
    m_tool = Preferences::instance().activeTool();
    m_pressed = pressed;
    m_scale = scale;
    m_pressedValue = this->value();
    preview(drawManager);
}

int ToolAdjustment::value() const
{
    const Preferences& preferences = Preferences::instance();
    return m_value == Value::Size ? preferences.toolSize(m_tool) : preferences.toolOpacity(m_tool);
}

void ToolAdjustment::dragTo(int x, MHWRender::MUIDrawManager* drawManager)
{
    Preferences& preferences = Preferences::instance();
    const int wanted = m_pressedValue + (x - m_pressed.x()) / kPixelsPerStep;
    if (m_value == Value::Size) {
        preferences.setToolSize(m_tool, wanted);
    } else {
        preferences.setToolOpacity(m_tool, wanted);
    }
    preview(drawManager);
    Panels::refreshInstalled(Panel::ToolOptions);
}

void ToolAdjustment::end()
{
    if (m_isInverted) {
        invertCircle(m_invertedRadius);
    }
}

// What a draw manager is given is there for one frame; what a legacy view shows stays until it is inverted once more.
void ToolAdjustment::preview(MHWRender::MUIDrawManager* drawManager)
{
    const double radius = Preferences::instance().toolSize(m_tool) * 0.5 * m_scale;
    if (drawManager) {
        drawPreview(*drawManager, m_pressed, m_value == Value::Size ? radius : 0.0, value());
        return;
    }
    end();
    if (m_value == Value::Size) {
        invertCircle(radius);
    }
}

void ToolAdjustment::invertCircle(double radius)
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    m_isInverted = status && invertPreview(view, m_pressed, radius) && !m_isInverted;
    m_invertedRadius = radius;
}
