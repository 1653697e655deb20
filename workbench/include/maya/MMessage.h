#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Callbacks of every kind are taken away here. A module must take back its own before it is unloaded.
class MMessage {
public:
    typedef void (*MBasicFunction)(void* clientData);
    typedef void (*MStateFunction)(bool state, void* clientData);

    static MStatus removeCallback(MCallbackId id);
    /// Removes all; fails when one was not there. The array is left as it is.
    static MStatus removeCallbacks(MCallbackIdArray& ids);
    /// The callback being delivered now; fails outside of any.
    static MCallbackId currentCallbackId(MStatus* ReturnStatus = NULL);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
