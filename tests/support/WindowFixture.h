#pragma once

#include "support/HostFixture.h"
#include "view/Viewports.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>

/// A host with a bare main window and views, in which scripts can make windows and menus.
class WindowFixture : public HostFixture {
protected:
    WindowFixture()
    {
        session().batch = false;
        ui().setMainWindow(&window);
        views = std::make_unique<view::Viewports>(session());
    }

    ui::UiObjects& ui() { return host().ui(); }
    std::string value(const std::string& script) { return kernel::toText(evaluate(script)); }
    std::string lastError() const
    {
        const std::vector<std::string> texts = errors();
        return texts.empty() ? std::string() : texts.back();
    }
    /// The last error of a text that must fail.
    std::string errorOf(const std::string& script)
    {
        forgetLines();
        EXPECT_FALSE(run(script)) << script;
        return lastError();
    }
    /// What scripts printed since the lines were forgotten.
    std::string printed() const
    {
        std::string all;
        for (const std::string& line : said(kernel::Severity::Plain)) {
            all += line;
        }
        return all;
    }
    /// The widget of a control, layout, panel or window; null when there is none of that name.
    template <class T = QWidget>
    T* widget(const char* name)
    {
        return qobject_cast<T*>(ui().findControl(name));
    }
    QAction* item(const std::string& name) { return ui().findMenuItem(name); }
    /// The menu of a name, or below the item of that name.
    QMenu* menu(const std::string& name)
    {
        QAction* const below = item(name);
        return below ? below->menu() : qobject_cast<QMenu*>(ui().get("test", name).object);
    }
    /// What a return to the event loop would delete.
    static void deliverDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    std::unique_ptr<view::Viewports> views;
    QMainWindow window;
};
