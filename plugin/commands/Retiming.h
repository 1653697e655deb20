#pragma once

#include "settings/FrameSpan.h"

#include <QList>

// Where frames go when they are retimed or moved, on plain numbers. `numbers` are a layer's, ascending.

/// Said when a frame would get a number that 32 bits do not hold.
constexpr char kFrameNumberOutOfRange[] = "Frame number out of range";

struct Retiming {
    int value;  ///< the new gap after a frame, or what is added to each gap when relative
    bool relative;
    bool moveToNext;  ///< go to the frame after the span, not to the span's own
};

/// The span with its start on the last frame at or before it, its end at the first frame at or after it; an end
/// without such a frame stays.
FrameSpan snappedSpan(const QList<int>& numbers, const FrameSpan& span);

/// The numbers after a retiming of the frames in a snapped span; those behind it follow. Frames never meet or cross:
/// each stays above the one before it. Empty when a number would leave 32 bits.
///     span 2..3, value 3, absolute:   1 2 3 . . . . . . 10   ->   1 2 . . 5 . . . . . . 12
QList<int> retimedNumbers(const QList<int>& numbers, const FrameSpan& span, const Retiming& retiming);

/// Index of the frame to go to: the last at or before the span's start, or the first after it; the last of all when
/// there is none. `numbers` is not empty.
int landingIndex(const QList<int>& numbers, const FrameSpan& span, bool moveToNext);

/// The numbers from first to last, both included, each once.
QList<int> numbersToMove(const QList<int>& numbers, int first, int last);

enum class MoveObstacle { None, Frame, Range };
/// Whether something is in the way of moving frames: another that stays, or the end of the 32 bits. at: the number the
/// foremost of those concerned would have had. `moving` is what numbersToMove gave.
MoveObstacle obstacleToMove(const QList<int>& numbers, const QList<int>& moving, int offset, qint64& at);

bool isFrameNumber(qint64 number);  ///< within 32 bits
