#include "support/PointedPopup.h"

namespace support {

namespace {

constexpr int kTurnsToShow = 10;

}  // namespace

bool PointedPopup::choose(const QStringList& labels)
{
    open();
    for (const QString& label : labels) {
        const QRect rect = entryRect(label);
        if (rect.isNull()) {
            return false;
        }
        m_host.clickControl(rect.center());
    }
    return true;
}

void PointedPopup::close()
{
    for (int open = 0; open < 3; ++open) {
        m_host.key("Escape");
    }
}

QRect PointedPopup::entryRect(const QString& label)
{
    QRect rect = m_host.menuEntryRect(label);
    for (int turns = 0; rect.isNull() && turns < kTurnsToShow; ++turns) {
        m_host.letTurn();
        rect = m_host.menuEntryRect(label);
    }
    return rect;
}

}  // namespace support
