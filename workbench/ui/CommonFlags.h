#pragma once

#include "ui/ControlCommand.h"

namespace ui {

/// The flags that all windows, layouts, controls and panels have. Those about making (-exists, -parent) only have their
/// answers here.
const std::vector<ControlFlag>& commonFlags();

}  // namespace ui
