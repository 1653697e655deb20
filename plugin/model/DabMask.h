#pragma once

#include <QtGlobal>

/// The alpha of one stamp of the pencil, eraser or brush: a table of 102 x 102 bytes with a disc in it. The centre byte
/// falls on the stamped pixel and the disc is symmetric about it, whatever the radius. Only radius 1 has no centre: it
/// is a block of 2 x 2 whose lower right pixel is the stamped one.
class DabMask {
public:
    static constexpr int kSide = 102;
    static constexpr float kLargestRadius = 50.0f;

    enum class Mode {
        Soft,  ///< alpha falls off linearly from the inner radius to the rim
        Hard,  ///< flat, the rim antialiased
        Flat   ///< flat, no antialiasing
    };

    /// inner, radius: pixels, inner below the radius. The radius is held within 0..50, and 0 gives an empty mask;
    /// the opacity is held within 0..1.
    void build(float inner, float radius, float opacity, Mode mode);

    int centre() const { return m_centre; }  ///< row and column that fall on the stamped pixel
    int reach() const { return m_reach; }    ///< no byte beyond centre +- reach is set
    const uchar* row(int y) const { return m_alpha + y * kSide; }

private:
    void buildDisc(float inner, float radius, float opacity, Mode mode);
    void fillHalfRow(int lastX, int y, float inner, float radius, float opacity, Mode mode);
    void raise(int dx, int dy, uchar alpha);

    int m_centre = 0;
    int m_reach = 0;
    uchar m_alpha[kSide * kSide] = {};
};

/// The alpha byte of an opacity: int(opacity * 255), opacities outside 0..1 and no numbers at all held within.
uchar alphaOf(float opacity);
