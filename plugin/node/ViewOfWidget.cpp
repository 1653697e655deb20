#include "node/ViewOfWidget.h"

bool findView(const QWidget* widget, M3dView& view)
{
    for (unsigned int i = 0; widget && i < M3dView::numberOf3dViews(); ++i) {
        M3dView found;
        if (M3dView::get3dView(i, found) && found.widget() == widget) {
            view = found;
            return true;
        }
    }
    return false;
}
