#pragma once

#include <maya/MMessage.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Callbacks for the host's named events.
class MEventMessage : public MMessage {
public:
    /// 0 and a failing status for an unknown event.
    static MCallbackId addEventCallback(const MString& eventName, MMessage::MBasicFunction function,
                                        void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static MStatus getEventNames(MStringArray& names);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
