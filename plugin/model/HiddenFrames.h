#pragma once

#include "model/LayerManager.h"

#include <memory>
#include <vector>

/// What the user is told of frames that have the number of an earlier one in their layer, see Layer. One warning names
/// all layers concerned and how many frames each; without such frames nothing is said.
namespace hiddenFrames {

/// A time unit has come into force. Drawings may be null or occur several times.
void warnOfTimeUnit(const std::vector<std::shared_ptr<const LayerManager>>& drawings);
/// The binary record holds nothing but numbers of frames, so reading it keeps only the first frame of each.
void warnOfBinarySave(const LayerManager& drawing);

}  // namespace hiddenFrames
