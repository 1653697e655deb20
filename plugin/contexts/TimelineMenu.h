#pragma once

#include "contexts/ToolMenu.h"

/// What opens over the time slider while the draw tool is in use: the entries that change frames.
class TimelineMenu : public ToolMenu {
    Q_OBJECT

public:
    explicit TimelineMenu(QWidget& timeSlider);
};
