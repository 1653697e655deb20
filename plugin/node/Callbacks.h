#pragma once

#include <maya/MStatus.h>

/// The host's events the plug-in answers while it is loaded.
namespace callbacks {

/// Stops at the first failure; what was installed before it stays. shutDown: called when the host quits.
MStatus install(void (*shutDown)());
MStatus remove();  ///< takes back what install() installed

}  // namespace callbacks
