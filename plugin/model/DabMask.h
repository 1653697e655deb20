#pragma once

#include <QtGlobal>

/// The alpha of one stamp of the pencil, eraser or brush: a table of 102 x 102 bytes with a disc around its centre.
class DabMask {
public:
    static constexpr int kSide = 102;
    static constexpr float kLargestRadius = 50.0f;

    enum class Mode {
        Soft,  ///< alpha falls off linearly from the inner radius to the rim
        Hard,  ///< flat, the rim antialiased
        Flat   ///< flat, no antialiasing
    };

    /// inner, radius: pixels, radius held within 0..50. opacity: held within 0..1.
    void build(float inner, float radius, float opacity, Mode mode);

    int centre() const { return m_centre; }  ///< row and column that fall on the stamped pixel
    int reach() const { return m_reach; }    ///< no byte beyond centre +- reach is set
    const uchar* row(int y) const { return m_alpha + y * kSide; }
    uchar at(int x, int y) const { return m_alpha[y * kSide + x]; }

private:
    void raise(int dx, int dy, int alpha);
    void raiseMirrored(int dx, int dy, int alpha);
    void fillRow(int halfWidth, int dy, float inner, float radius, float opacity, Mode mode);

    int m_centre = 0;
    int m_reach = 0;
    uchar m_alpha[kSide * kSide] = {};
};
