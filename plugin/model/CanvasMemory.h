#pragma once

#include <QImage>

/// Canvases come and go with every stroke, and what the system asks for fresh memory of that size is more than filling
/// it takes. So the memory of the last few that went is kept for those to come. For any thread.
namespace canvasMemory {

/// A canvas whose pixels mean nothing yet. format: of four bytes a pixel.
QImage take(QImage::Format format = QImage::Format_RGBA8888);

}  // namespace canvasMemory
