#pragma once

#include "kernel/Node.h"

#include <QString>

namespace app {

/// The words of a name like "horizontalFilmAperture": "Horizontal Film Aperture".
QString niceName(const std::string& name);

/// 0 for what holds none.
double numberOf(const kernel::PlugValue& value);

/// A value as a person reads it: numbers to about four places, "on" and "off", the names of an enum.
/// Empty for what holds neither a number nor a text.
QString shownText(const kernel::PlugValue& value, const kernel::AttributeSpec& attribute);

/// The same as a person types it: numbers to ten places, an enum's index.
QString typedText(const kernel::PlugValue& value, const kernel::AttributeSpec& attribute);

}  // namespace app
