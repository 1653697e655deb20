#pragma once

#include <QIcon>

namespace app {

enum class TransportIcon {
    ToStart,
    StepBack,
    PreviousKey,
    PlayBackwards,
    Stop,
    Play,
    NextKey,
    StepForward,
    ToEnd,
    Once,
    Continuous,
    Oscillate,
};

/// Drawn as lines and areas on a grid of 24 with a margin of 2: light grey, white under the pointer. Sharp at 24
/// pixels, and at 48.
QIcon transportIcon(TransportIcon which);

}  // namespace app
