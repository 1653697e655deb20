#pragma once

#include "kernel/Session.h"

#include <QByteArray>

#include <string>

class LayerManager;

namespace fuzz {

/// A host without a window that knows the drawing node. Made on first use; it lasts until the process ends.
kernel::Session& session();
/// A folder for files of this process.
std::string workFolder();

/// Ends the process as a crash does, which a fuzzer keeps the input of.
void require(bool holds, const char* what);

/// Whether what this input gave is drawn on, too: one in 64, for that takes far longer than reading.
bool isDrawnOn(const std::uint8_t* bytes, std::size_t size);
/// Draws on the first layers with brush, eraser and a shape, shows every step with ghosts, and takes some of it back.
void drawOn(LayerManager& drawing);

QByteArray binaryRecord(LayerManager& drawing);
QByteArray textRecord(LayerManager& drawing);

/// Drawings of every kind that a record can hold, with pictures of a few pixels.
constexpr int kSampleCount = 6;
void makeSample(int number, LayerManager& drawing);

}  // namespace fuzz
