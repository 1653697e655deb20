#include "ui/LayoutWidget.h"

namespace ui {

LayoutWidget* LayoutWidget::around(const QWidget& widget)
{
    for (QWidget* above = widget.isWindow() ? nullptr : widget.parentWidget(); above; above = above->parentWidget()) {
        if (auto* const layout = qobject_cast<LayoutWidget*>(above)) {
            return layout;
        }
        if (above->isWindow()) {
            break;
        }
    }
    return nullptr;
}

}  // namespace ui
