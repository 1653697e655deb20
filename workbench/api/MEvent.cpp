#include <maya/MEvent.h>

#include "api/Access.h"
#include "api/Handles.h"

#include <QtCore/QPoint>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <limits>

using api::report;

namespace {

short toShort(int value)
{
    using Limits = std::numeric_limits<short>;
    return short(std::clamp(value, int(Limits::min()), int(Limits::max())));
}

}  // namespace

namespace api {

MEvent Access::event(const ToolEvent& event)
{
    MEvent result;
    result.m_x = toShort(event.x);
    result.m_y = toShort(event.y);
    if (event.button == ToolEvent::Button::Left)
        result.m_button = MEvent::kLeftMouse;
    else if (event.button == ToolEvent::Button::Middle)
        result.m_button = MEvent::kMiddleMouse;
    result.m_modifiers = (event.shift ? MEvent::shiftKey : 0) | (event.control ? MEvent::controlKey : 0);
    result.m_inView = true;
    return result;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MEvent::MEvent() = default;

MEvent::~MEvent() = default;

MStatus MEvent::getPosition(short& x, short& y) const
{
    x = m_x;
    y = m_y;
    return MStatus::kSuccess;
}

MStatus MEvent::getWindowPosition(short& x, short& y) const
{
    api::ViewHost* const host = api::viewHost();
    api::View* const view = host && m_inView ? host->activeView() : nullptr;
    QWidget* const widget = view ? view->widget() : nullptr;
    if (!widget || view->portHeight() <= 0)
        return MStatus::kFailure;
    // Port pixels are physical, widget coordinates logical.
    const double scale = double(widget->height()) / view->portHeight();
    const QPoint corner = widget->mapToGlobal(QPoint(0, 0));
    x = toShort(corner.x() + int(m_x * scale));
    y = toShort(corner.y() + int((view->portHeight() - 1 - m_y) * scale));
    return MStatus::kSuccess;
}

MStatus MEvent::setPosition(short x, short y)
{
    m_x = x;
    m_y = y;
    return MStatus::kSuccess;
}

MStatus MEvent::setModifiers(const ModifierType& modifiers)
{
    m_modifiers = modifiers;
    return MStatus::kSuccess;
}

MEvent::MouseButtonType MEvent::mouseButton(MStatus* ReturnStatus) const
{
    report(ReturnStatus, m_button ? MStatus::kSuccess : MStatus::kFailure);
    return MouseButtonType(m_button);
}

MEvent::ModifierType MEvent::modifiers(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return ModifierType(m_modifiers);
}

bool MEvent::isModifierNone(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return m_modifiers == 0;
}

bool MEvent::isModifierShift(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return (m_modifiers & shiftKey) != 0;
}

bool MEvent::isModifierControl(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return (m_modifiers & controlKey) != 0;
}

bool MEvent::isModifierLeftMouseButton(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return m_button == kLeftMouse;
}

bool MEvent::isModifierMiddleMouseButton(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return m_button == kMiddleMouse;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
