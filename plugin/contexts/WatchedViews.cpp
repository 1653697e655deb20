#include "contexts/WatchedViews.h"

#include <maya/M3dView.h>

void WatchedViews::addActive()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    QWidget* widget = status ? view.widget() : nullptr;
    if (widget && !contains(widget)) {
        widget->installEventFilter(&m_handler);
        m_views.append(widget);
    }
}

bool WatchedViews::contains(const QObject* watched) const
{
    for (const QPointer<QWidget>& view : m_views) {
        if (view == watched) {
            return true;
        }
    }
    return false;
}

void WatchedViews::release()
{
    for (const QPointer<QWidget>& view : m_views) {
        if (view) {
            view->removeEventFilter(&m_handler);
        }
    }
    m_views.clear();
}
