#pragma once

#include "kernel/Output.h"

#include <QString>

namespace app {

/// A message with what it is in front: "Error: ...", "Warning: ...", "Result: ...", others as they are.
QString messageText(kernel::Severity severity, const QString& text);

}  // namespace app
