#pragma once

#include "support/PointerPath.h"

#include <QImage>
#include <QLocalSocket>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVector>

namespace support {

/// The pointer's buttons as the X server numbers them.
enum class PointerButton { None, Left, Middle, Right };

/// A workbench process with a real window on the current X display, driven as a user drives it: with the pointer and
/// the keyboard of the X server. Script text goes in through its command port.
class LiveWorkbench {
public:
    /// Starts the program and waits until its window is up and it answers. `arguments` come before the port's own.
    LiveWorkbench(const QString& program, const QStringList& arguments);
    ~LiveWorkbench();

    bool isRunning() const { return m_socket.state() == QLocalSocket::ConnectedState; }
    /// Executes a text and gives its result, or its messages beginning with "Error: ".
    QString run(const QString& text, int timeoutMs = 30000);
    /// Sends a text without waiting for it (to keep the program busy meanwhile).
    void post(const QString& text);
    /// Returns when the program has ended by itself; false when it does not.
    bool waitForEnd(int timeoutMs = 30000);
    /// Returns when the program has handled everything before and its views are painted.
    void settle();
    /// Returns when the program has handled the pointer's and the keys' events before, and what they queued.
    void letTurn();

    /// The view's drawing area on the screen; the first view when no panel is named.
    QRect viewRect(const QString& panel = QString());
    /// A named control, menu or menu item on the screen; null when it is not to be seen.
    QRect controlRect(const QString& name);
    /// The same for an entry of a menu that is open, by its label as it is shown.
    QRect menuEntryRect(const QString& label);

    /// Moves the real pointer along `path` (screen pixels) with a button down; `stepMs` between points, which is a
    /// hand's pace. It moves off when the press has been handled, and rests for `restMs` at the end.
    void drag(const QVector<QPoint>& path, int stepMs = 8, int restMs = 30, PointerButton button = PointerButton::Left);
    void click(const QPoint& point);
    /// The same without waiting for the views, which is most of the time a click takes.
    void clickControl(const QPoint& point);
    void rightClick(const QPoint& point);
    /// Moves the pointer to the first point, presses a button there and drags to the second; letGo() ends it.
    void hold(const QPoint& from, const QPoint& to, PointerButton button = PointerButton::Left);
    void letGo();
    /// Moves along `way`, `stepMs` between points; lets go of the left button at its end and moves on along `after`.
    /// Does not wait for the program, whatever that is busy with.
    void strokeUnheard(const QVector<QPoint>& way, const QVector<QPoint>& after, int stepMs = 8);
    void moveTo(const QPoint& point);
    /// A key or chord in the X server's names: "ctrl+z", "Return".
    void key(const QString& chord);
    void keyDown(const QString& name);
    void keyUp(const QString& name);

    QImage screenshot(const QRect& area = QRect());
    /// What it has printed so far.
    QString output();

private:
    QRect askRect(const QString& query);
    /// Returns when the program has handled what the pointer or the keyboard did.
    void pointer(const QStringList& arguments);
    void pressAt(const QPoint& point, PointerButton button = PointerButton::Left);
    QStringList release();

    QProcess m_process;
    QLocalSocket m_socket;
    QByteArray m_output;
    int m_unanswered = 0;  ///< texts sent
    PointerButton m_held = PointerButton::None;
};

}  // namespace support
