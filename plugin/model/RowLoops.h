#pragma once

// Loops over rows of pixels. Only plain C headers here: see plugin_row_loops in the build.
#include <stdint.h>

/// A pixel is four bytes, straight alpha in the top one (QImage::Format_RGBA8888 and Format_ARGB32 on little-endian
/// processors).
struct RowLoops {
    /// Porter and Duff's "over" ("Compositing Digital Images", 1984) with the front faded first. What is transparent
    /// becomes 0. Mixed in 16 bits and rounded where Qt's painter rounds, so that it matters little which of the two
    /// made a picture; painters differ by processor in the last bit.
    /// back: changed. front: red and blue change places when swapped is set. count: pixels. opacity: 0..255.
    void (*over)(uint32_t* back, const uint32_t* front, int count, bool swapped, int opacity);
    /// Their "destination over": back shows through where front is not opaque. front: changed.
    void (*under)(uint32_t* front, const uint32_t* back, int count);
    /// Gives the pixels that are not fully transparent the lower three bytes of colour.
    void (*tint)(uint32_t* row, int count, uint32_t colour);
    /// Bit i is set when any of the pixels from 16 * i to 16 * i + 15 is not fully transparent.
    /// columns: at most 64; the row is 16 * columns pixels long.
    uint64_t (*inkColumns)(const uint32_t* row, int columns);
    /// Has the processor fetch a row that is worked on soon. Ink lies here and there, which defeats the fetching that
    /// processors do by themselves.
    void (*fetch)(const uint32_t* row, int count);
};

const RowLoops& rowLoops();  ///< the fastest that run here
const RowLoops& portableRowLoops();
const RowLoops* avx2RowLoops();  ///< null where there are none
