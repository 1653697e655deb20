#pragma once

#include "app/MainWindow.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

/// What the event loop does with what is due now and what that makes due.
inline void turnEventLoop()
{
    for (int turn = 0; turn < 200; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// A run of the program with its window, on a preferences folder that may have seen others.
class WindowSession {
public:
    explicit WindowSession(const QString& prefsDir)
    {
        app::HostOptions options;
        options.batch = false;
        options.prefsDir = prefsDir.toStdString();
        host = std::make_unique<app::Host>(options);
        window = std::make_unique<app::MainWindow>(*host);
    }
    ~WindowSession()
    {
        host->shutDown();
        window.reset();
    }
    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;

    std::string value(const std::string& text) { return kernel::toText(host->evaluate(text)); }
    /// Turns the event loop until it has done what waits for idle time, between whose parts it may rest.
    void finishIdleWork()
    {
        const QDeadlineTimer patience(20000);
        while (!host->session().idle.isEmpty() && !patience.hasExpired()) {
            turnEventLoop();
        }
        turnEventLoop();
    }

    std::unique_ptr<app::Host> host;
    std::unique_ptr<app::MainWindow> window;
};

/// Presses and releases a key, as its widget gets it.
inline void pressKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = QString(), bool autoRepeat = false)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text, autoRepeat);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text, autoRepeat);
    QApplication::sendEvent(widget, &release);
}

/// Types a text, key by key.
inline void type(QWidget* widget, const QString& text)
{
    for (const QChar c : text) {
        if (c == '\n') {
            pressKey(widget, Qt::Key_Return, Qt::NoModifier, "\r");
        } else {
            pressKey(widget, c.toUpper().unicode(), Qt::NoModifier, c);
        }
    }
}
