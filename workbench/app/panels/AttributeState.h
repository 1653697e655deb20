#pragma once

#include "kernel/Node.h"

#include <QBrush>

namespace app {

/// What an animator wants to know of an attribute before changing it.
enum class AttributeState {
    Free,
    Animated,  ///< a curve gives it its values, but has no key at the current time
    KeyedNow,
    ReadOnly,  ///< locked, or never to be written
};

AttributeState stateOf(const kernel::Node& node, const kernel::AttributeSpec& attribute);

/// The ground of the field that shows an attribute of that state.
QBrush groundOf(AttributeState state);

}  // namespace app
