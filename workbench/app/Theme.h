#pragma once

#include "kernel/Output.h"

#include <QColor>

class QApplication;

namespace app {

/// Gives the program its dark look.
void applyTheme(QApplication& application);

/// Colour of a message of that kind on the window's ground.
QColor messageColour(kernel::Severity severity);
/// The same for letters on the ground of text fields, which the colour of errors is too dark for.
QColor messageTextColour(kernel::Severity severity);

}  // namespace app
