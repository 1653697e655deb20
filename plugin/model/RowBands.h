#pragma once

#include <functional>

/// Calls work(first, end) for bands of the canvas's rows, half open, on this thread and on the processors that are
/// free. Comes back when all of it is done. work must only touch its own rows of what it changes.
void forRowBands(const std::function<void(int first, int end)>& work);
