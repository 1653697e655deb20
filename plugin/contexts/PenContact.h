#pragma once

#include <QtGlobal>

class QTabletEvent;

/// Follows the pen through its tablet events, and so keeps the pen state: one contact at a time, from the tip's touch
/// to its lifting. The mouse button that a touch counts as may go down or up before the tablet says anything of it, and
/// what a pen reports beyond the release of the button is no part of any stroke.
class PenContact {
public:
    /// No pen is down, nor the button: what the tool calls once the stroke of a release has ended.
    void reset();
    /// What the tool calls before a stroke begins.
    void pressButton();
    void follow(const QTabletEvent& event);

private:
    bool isFollowed(const QTabletEvent& event) const;

    bool m_isDown = false;
    bool m_buttonIsDown = false;
    bool m_hasPressure = false;  // of this contact
    qint64 m_pen = 0;            // that is down; others are not listened to meanwhile
};
