#include "app/panels/AttributeState.h"

#include "mel/builtins/Placement.h"

#include <QGuiApplication>
#include <QPalette>

namespace app {

AttributeState stateOf(const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    if (!attribute.writable || mel::isLocked(node, attribute)) {
        return AttributeState::ReadOnly;
    }
    if (!node.isAnimated(attribute)) {
        return AttributeState::Free;
    }
    return node.hasKeyNow(attribute) ? AttributeState::KeyedNow : AttributeState::Animated;
}

QBrush groundOf(AttributeState state)
{
    switch (state) {
    // Dark enough for the palette's text: 4.5 to 1 at least.
    case AttributeState::Animated: return QColor("#74532c");
    case AttributeState::KeyedNow: return QColor("#7a3b38");
    case AttributeState::ReadOnly: return QGuiApplication::palette().brush(QPalette::Mid);
    default: return QGuiApplication::palette().brush(QPalette::Base);
    }
}

}  // namespace app
