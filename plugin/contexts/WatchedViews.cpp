#include "contexts/WatchedViews.h"

#include <maya/M3dView.h>

QWidget* WatchedViews::addActive()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    QWidget* const widget = status ? view.widget() : nullptr;
    if (widget) {
        watch(m_views, widget);
        add(widget->window());
    }
    return widget;
}

void WatchedViews::add(QWidget* other)
{
    if (other) {
        watch(m_others, other);
    }
}

void WatchedViews::watch(Widgets& list, QWidget* widget)
{
    if (!list.contains(widget)) {
        widget->installEventFilter(&m_handler);
        list.append(widget);
    }
}

bool WatchedViews::contains(const QObject* view) const
{
    for (const QPointer<QWidget>& known : m_views) {
        if (known == view) {
            return true;
        }
    }
    return false;
}

void WatchedViews::release()
{
    release(m_views);
    release(m_others);
}

void WatchedViews::release(Widgets& list)
{
    for (const QPointer<QWidget>& widget : list) {
        if (widget) {
            widget->removeEventFilter(&m_handler);
        }
    }
    list.clear();
}
