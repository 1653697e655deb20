#include "ui/StatusLine.h"

#include "ui/MenuSetBox.h"

#include <QLayout>

namespace ui {

StatusLine::StatusLine(UiObjects& ui, MenuSets& sets)
{
    setObjectName("statusLine");
    setMovable(false);
    addWidget(new MenuSetBox(ui, sets));
    layout()->setContentsMargins(4, 4, 4, 0);
}

}  // namespace ui
