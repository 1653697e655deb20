#pragma once

#include "ui/ControlCommand.h"

namespace ui {

/// The flags that all windows, layouts, controls and panels have.
const std::vector<ControlFlag>& commonFlags();

}  // namespace ui
