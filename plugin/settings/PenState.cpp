#include "settings/PenState.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace penState {

namespace {

std::atomic<float> s_pressure{1.0f};
bool s_eraserTip = false;

}  // namespace

float pressure()
{
    return s_pressure.load(std::memory_order_relaxed);
}

void setPressure(float pressure)
{
    const float usable = std::isnan(pressure) ? 1.0f : std::max(0.0f, std::min(1.0f, pressure));
    s_pressure.store(usable, std::memory_order_relaxed);
}

bool isEraserTip()
{
    return s_eraserTip;
}

void setEraserTip(bool eraser)
{
    s_eraserTip = eraser;
}

void reset()
{
    setPressure(1.0f);
    setEraserTip(false);
}

}  // namespace penState
