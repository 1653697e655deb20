#pragma once

#include "model/RowSpan.h"

#include <functional>

/// Calls work(first, end) for bands of the canvas's rows, half open, on this thread and on the processors that are
/// free. Comes back when all of it is done, and passes on what a band threw. work must only touch its own rows of what
/// it changes.
void forRowBands(const std::function<void(int first, int end)>& work);
/// The same for work that changes so many pixels. Few are done sooner than other threads have started, on a busy
/// machine much sooner, a stroke's for example: they are done on this thread.
/// rows: those that it touches; no more are given to it.
void forRowBands(const RowSpan& rows, int pixels, const std::function<void(int first, int end)>& work);
/// Ends the threads that help with that: before the module goes. The next call starts them again.
void stopRowHelpers();
