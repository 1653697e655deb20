#pragma once

#include "kernel/NodeType.h"

#include <maya/MFnAttribute.h>
#include <maya/MFnNumericData.h>

#include <optional>
#include <string>
#include <vector>

namespace api {

/// What an attribute made through the API carries beyond what the kernel knows. None of it changes what nodes do.
struct AttributeExtras {
    bool cached = true;
    bool internal = false;
    bool usedAsColour = false;
    bool indexMatters = true;
    bool affectsAppearance = false;
    MFnAttribute::DisconnectBehavior disconnectBehaviour = MFnAttribute::kNothing;
    std::string niceName;
    std::optional<double> softMinimum;
    std::optional<double> softMaximum;
    std::vector<kernel::AttributePtr> children;  ///< of a compound
    MFnNumericData::Type numericType = MFnNumericData::kInvalid;
};

/// A fresh attribute with the host's default flags and extras of its own.
kernel::AttributePtr makeAttribute(const std::string& longName, const std::string& shortName, kernel::ValueKind kind);
/// Null for attributes of the host's own types.
AttributeExtras* extrasOf(const kernel::AttributePtr& attribute);

}  // namespace api
