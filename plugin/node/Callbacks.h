#pragma once

#include <maya/MStatus.h>

/// The host's events the plug-in answers while it is loaded.
namespace callbacks {

MStatus install();  ///< stops at the first failure; what was installed before it stays
MStatus remove();   ///< takes back what install() installed

}  // namespace callbacks
