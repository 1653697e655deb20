#pragma once

/// What the tablet pen does right now, process-wide. Written on the main thread from tablet events; the pressure is
/// read by the pointer worker on its own thread at every poll.
namespace penState {

float pressure();                  ///< 0..1; 1 when no tablet is in use
void setPressure(float pressure);  ///< held within 0..1; what is no number is that of no tablet

/// The pen is turned round, so that its eraser end is on the tablet. Main thread only.
bool isEraserTip();
void setEraserTip(bool eraser);

void reset();  ///< pressure 1, drawing tip

}  // namespace penState
