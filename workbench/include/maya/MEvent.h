#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

namespace api {
struct Access;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A pointer event of a view. There is no right button and no Alt in these.
class MEvent {
public:
    enum MouseButtonType { kLeftMouse = 64, kMiddleMouse = 128 };
    enum ModifierType { shiftKey = 1, controlKey = 4 };

    MEvent();
    virtual ~MEvent();

    /// Pixels of the view's drawing area, origin lower left, y up.
    MStatus getPosition(short& x, short& y) const;
    /// Screen pixels, origin upper left; fails for an event of no view.
    MStatus getWindowPosition(short& x, short& y) const;
    MStatus setPosition(short x, short y);
    MStatus setModifiers(const ModifierType& modifiers);

    /// Fails, and is 0, for an event without a button.
    MouseButtonType mouseButton(MStatus* ReturnStatus = NULL) const;
    ModifierType modifiers(MStatus* ReturnStatus = NULL) const;
    bool isModifierNone(MStatus* ReturnStatus = NULL) const;
    bool isModifierShift(MStatus* ReturnStatus = NULL) const;
    bool isModifierControl(MStatus* ReturnStatus = NULL) const;
    bool isModifierLeftMouseButton(MStatus* ReturnStatus = NULL) const;
    bool isModifierMiddleMouseButton(MStatus* ReturnStatus = NULL) const;

private:
    friend struct api::Access;
    short m_x = 0;
    short m_y = 0;
    int m_button = 0;
    int m_modifiers = 0;
    bool m_inView = false;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
