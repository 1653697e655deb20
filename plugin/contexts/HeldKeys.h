#pragma once

class QKeyEvent;

/// Which of the keys that the draw tool knows are held down. A release that goes to another window is not seen: the key
/// then counts as held until it is released here.
class HeldKeys {
public:
    void clear() { *this = HeldKeys(); }
    /// Notes a press or a release; those that a held key repeats change nothing.
    void follow(const QKeyEvent& event);

    bool changesSize() const { return m_size; }        ///< B
    bool changesOpacity() const { return m_opacity; }  ///< M
    bool sparesMenus() const { return m_backslash; }   ///< backslash: the host pans with it

    static bool isOurs(const QKeyEvent& event);    ///< B and M without Ctrl, Alt or Meta, which nobody else gets
    static bool isShared(const QKeyEvent& event);  ///< the backslash, which always goes on to the host

private:
    bool m_size = false;
    bool m_opacity = false;
    bool m_backslash = false;
};
