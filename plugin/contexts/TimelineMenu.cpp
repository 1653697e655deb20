#include "contexts/TimelineMenu.h"

TimelineMenu::TimelineMenu(QWidget& timeSlider) : ToolMenu(timeSlider)
{
    addAction(QLatin1String("Lumisketch 2"))->setEnabled(false);
    addSeparator();
    addEntries(*this, script::menuGroup(script::MenuPart::Frames), script::kFrameEditCount);
}
