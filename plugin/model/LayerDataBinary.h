#pragma once

#include "model/LayerManager.h"

#include <iosfwd>

/// The binary record: little-endian numbers without padding, texts and pictures behind their byte counts.
namespace layerBinary {

/// Leaves off as soon as the stream fails, which is the only sign of failure.
void read(std::istream& in, LayerManager& manager);
void write(std::ostream& out, const LayerManager& manager);

}  // namespace layerBinary
