#pragma once

#include <maya/MMessage.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Callbacks for both edges of the host's named conditions.
class MConditionMessage : public MMessage {
public:
    /// 0 and a failing status for an unknown condition.
    static MCallbackId addConditionCallback(const MString& conditionName, MMessage::MStateFunction function,
                                            void* clientData = NULL, MStatus* ReturnStatus = NULL);
    static bool getConditionState(const MString& conditionName, MStatus* ReturnStatus = NULL);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
