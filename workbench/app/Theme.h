#pragma once

#include "kernel/Output.h"

#include <QColor>

class QApplication;

namespace app {

/// Gives the program its dark look.
void applyTheme(QApplication& application);

/// Colour of a message of that kind on the window's ground.
QColor messageColour(kernel::Severity severity);

}  // namespace app
