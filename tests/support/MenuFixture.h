#pragma once

#include "support/HostFixture.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>

/// A host with a bare main window, in which scripts can make windows and menus.
class MenuFixture : public HostFixture {
protected:
    MenuFixture() { ui().setMainWindow(&m_window); }

    ui::UiObjects& ui() { return host().ui(); }
    QMainWindow& window() { return m_window; }
    std::string text(const std::string& script) { return kernel::toText(evaluate(script)); }
    /// The last error of a text that must fail.
    std::string errorOf(const std::string& script)
    {
        forgetLines();
        EXPECT_FALSE(run(script)) << script;
        return errors().empty() ? std::string() : errors().back();
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
    QAction* item(const std::string& name) { return ui().findMenuItem(name); }
    /// The menu of a name, or below the item of that name.
    QMenu* menu(const std::string& name)
    {
        QAction* const below = item(name);
        return below ? below->menu() : qobject_cast<QMenu*>(ui().get("test", name).object);
    }
    static void deliverDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

private:
    QMainWindow m_window;
};
