#pragma once

#include "model/LayerManager.h"

#include <maya/MArgList.h>
#include <maya/MStatus.h>

#include <iosfwd>

/// The text record: tokens that the host's scene reader hands back as an argument list.
namespace layerText {

/// next: the first argument of the record on entry, one past the last consumed one on return.
MStatus read(const MArgList& arguments, unsigned int& next, LayerManager& manager);
void write(std::ostream& out, const LayerManager& manager);

}  // namespace layerText
