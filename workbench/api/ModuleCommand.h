#pragma once

#include "api/Registration.h"
#include "kernel/Command.h"
#include "kernel/Syntax.h"

#include <maya/MPxCommand.h>

#include <memory>
#include <string>

namespace api {

struct CommandRegistration {
    std::string module;
    std::string name;
    Creator creator = nullptr;
    std::shared_ptr<const kernel::Syntax> syntax;  ///< null when the module gave none
};

/// One invocation of a module's command. It keeps its registration, since the undo queue may hold it longer than the
/// module keeps the command registered.
class ModuleCommand : public kernel::Command {
public:
    explicit ModuleCommand(const CommandRegistration& registration);
    ~ModuleCommand() override;

    kernel::Value run(const kernel::ValueList& args) override;
    bool isUndoable() const override;
    bool undo() override;
    bool redo() override;

private:
    class ResultScope;
    CommandRegistration m_registration;
    std::unique_ptr<MPxCommand> m_command;
};

}  // namespace api
