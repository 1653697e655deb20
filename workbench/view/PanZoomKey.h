#pragma once

namespace view {

/// A key that means one thing when it is tapped and, while it is held, gives drags and the wheel another meaning.
class PanZoomKey {
public:
    bool isHeld() const { return m_isHeld; }
    void press()
    {
        m_isHeld = true;
        m_wasUsed = false;
    }
    /// The pointer did something with the key held: letting it go is no tap any more.
    void use() { m_wasUsed = true; }
    /// Whether it was only tapped.
    bool release()
    {
        const bool isTap = m_isHeld && !m_wasUsed;
        m_isHeld = false;
        return isTap;
    }

private:
    bool m_isHeld = false;
    bool m_wasUsed = false;
};

}  // namespace view
