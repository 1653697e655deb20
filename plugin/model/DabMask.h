#pragma once

#include "model/CoverageLoops.h"

#include <QRect>

#include <algorithm>
#include <vector>

/// Outside 0..1 the nearer of the two; no number at all counts as nothing.
inline float heldOpacity(float opacity)
{
    return opacity > 0.0f ? std::min(opacity, 1.0f) : 0.0f;
}

/// The alpha byte of an opacity: int(opacity * 255), the opacity held within 0..1.
inline uchar alphaOf(float opacity)
{
    return static_cast<uchar>(heldOpacity(opacity) * 255.0f);
}

/// The alpha of one stamp of the pencil, eraser or brush: a disc in a table of at most 102 x 102 bytes. The table's
/// centre falls on the stamped pixel and the disc is symmetric about it, whatever the radius. Only radius 1 has no
/// centre: it is a block of 2 x 2 whose lower right pixel is the stamped one.
/// Working out a shape is dear, setting another opacity is not, and setting either to what it is costs nothing.
class DabMask {
public:
    static constexpr float kLargestRadius = 50.0f;

    enum class Mode {
        Soft,  ///< alpha falls off linearly from the inner radius to the rim
        Hard,  ///< flat, the rim antialiased
        Flat   ///< flat, no antialiasing
    };

    DabMask();  ///< an empty one

    /// inner, radius: pixels, inner below the radius. The radius is held within 0..50, and 0 gives an empty dab.
    void setShape(float inner, float radius, Mode mode);
    /// Held within 0..1; no number at all counts as nothing.
    void setOpacity(float opacity)
    {
        if (opacity != m_opacity) {
            m_opacity = heldOpacity(opacity);
            m_empty = alphaOf(m_opacity) == 0;
        }
    }

    bool isEmpty() const { return m_empty; }    ///< whether no byte is set at this opacity
    const QRect& box() const { return m_box; }  ///< of the bytes that may be set, from the stamped pixel

    /// The rows of the box, borrowed until the shape or the opacity changes.
    const ByteRows& bytes()
    {
        if (m_bytesOpacity != m_opacity) {
            fillBytes();
        }
        return m_bytes;
    }
    const WordRows& words()
    {
        if (m_wordsOpacity != m_opacity) {
            fillWords();
        }
        return m_words;
    }
    uchar at(int dx, int dy);  ///< from the stamped pixel; 0 beyond the box

private:
    static constexpr int kRows = 2 * static_cast<int>(kLargestRadius) + 1;

    Q_DISABLE_COPY(DabMask)

    void build();
    void layOut(const QRect& box);
    void findSpans();
    void fillBytes();
    void fillWords();
    MaskShape shape() const;

    float m_inner = 0.0f;
    float m_radius = 0.0f;
    Mode m_mode = Mode::Flat;
    float m_opacity = 0.0f;
    bool m_empty = true;

    QRect m_box;
    int m_columns = 0;
    int m_starts[kRows + 2];       // in the values: of an empty row, those of the box, and the empty one again
    MaskSpan m_spans[kRows] = {};  // of the rows of the box
    MaskSpan m_pairSpans[kRows + 1] = {};
    std::vector<float> m_shape;  // of the box, down to its middle

    // The mask, an empty row first. Filled when asked for; it is at another opacity until then.
    ByteRows m_bytes;
    WordRows m_words;
    float m_bytesOpacity = -1.0f;
    float m_wordsOpacity = -1.0f;
    std::vector<quint8> m_byteValues;
    std::vector<quint16> m_wordValues;
};
