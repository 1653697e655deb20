#pragma once

#include "api/Registration.h"
#include "kernel/Command.h"

#include <string>

namespace api {

/// One invocation of a module's context command: makes a tool, or edits or queries one through the command object
/// that made it. Never undoable.
class ContextCommand : public kernel::Command {
public:
    ContextCommand(std::string module, std::string name, Creator creator);
    kernel::Value run(const kernel::ValueList& args) override;

private:
    std::string m_module;
    std::string m_name;
    Creator m_creator;
};

}  // namespace api
