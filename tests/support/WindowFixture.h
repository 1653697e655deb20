#pragma once

#include "support/HostFixture.h"
#include "view/Viewports.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>

/// A host with a bare main window and views, for scripts that make windows of their own.
class WindowFixture : public HostFixture {
protected:
    WindowFixture()
    {
        session().batch = false;
        ui().setMainWindow(&window);
        views = std::make_unique<view::Viewports>(session());
    }

    ui::UiObjects& ui() { return host().ui(); }
    std::string value(const std::string& text) { return kernel::toText(evaluate(text)); }
    /// The widget of a control, layout, panel or window; null when there is none of that name.
    template <class T = QWidget>
    T* widget(const char* name)
    {
        return qobject_cast<T*>(ui().findControl(name));
    }
    std::string lastError() const
    {
        const std::vector<std::string> texts = errors();
        return texts.empty() ? std::string() : texts.back();
    }
    /// What a return to the event loop would delete.
    static void deliverDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    std::unique_ptr<view::Viewports> views;
    QMainWindow window;
};
