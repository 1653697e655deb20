#pragma once

#include "kernel/Session.h"

#include <optional>
#include <string>
#include <vector>

namespace mel {

/// The arguments of setAttr, sorted.
struct SetAttrRequest {
    std::string plug;
    std::string type;                 ///< empty when none was named
    std::vector<std::size_t> values;  ///< places in the argument list
    std::optional<bool> locked;
    std::optional<bool> keyable;
    std::optional<bool> channelBox;
    bool clamp = false;
    bool hasOtherFlags = false;  ///< flags the workbench takes note of only

    bool needsValue() const { return !locked && !keyable && !channelBox && !hasOtherFlags; }
};

/// Throws CommandError in the host's words. Behind `-type` and a module's data type everything is taken as data, since
/// it may hold texts that look like flags; behind `-type "string"` the one text is.
SetAttrRequest readSetAttr(const kernel::Session& session, const kernel::ValueList& args);

}  // namespace mel
