#pragma once

#include <QIcon>

namespace app {

enum class TransportIcon {
    ToStart,
    StepBack,
    PlayBackwards,
    Stop,
    Play,
    StepForward,
    ToEnd,
    Once,
    Continuous,
    Oscillate,
};

/// Drawn as lines and areas on a grid of 24: light grey, white under the pointer. For any size up to 2 x 24 pixels.
QIcon transportIcon(TransportIcon which);

}  // namespace app
