#pragma once

#include "support/LiveWorkbench.h"

namespace support {

/// A menu that opens at a place of a running workbench's screen with the right button, as the pointer works it. Entries
/// are told by their labels on the way to them, those of the submenus first.
class PointedPopup {
public:
    PointedPopup(LiveWorkbench& host, const QPoint& place) : m_host(host), m_place(place) {}

    void open() { m_host.rightClick(m_place); }
    /// Opens the menu and clicks what leads to the entry, and the entry. False when one of them is not to be seen.
    bool choose(const QStringList& labels);
    /// Closes what is open of it.
    void close();
    /// Where an entry of the open menu is on the screen; null when it is not to be seen.
    QRect entryRect(const QString& label);

private:
    LiveWorkbench& m_host;
    const QPoint m_place;
};

}  // namespace support
