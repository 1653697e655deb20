#pragma once

#include "commands/Edit.h"

#include <maya/MPxCommand.h>

#include <memory>
#include <utility>

/// A command that parses its flags and leaves the work to one edit. It is undoable exactly when it made one.
class EditCommand : public MPxCommand {
public:
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override;

protected:
    /// Runs the edit for the first time and keeps it when that succeeds.
    MStatus execute(std::unique_ptr<Edit> edit);
    /// The same with an edit made of these arguments.
    template <class Made, class... Arguments>
    MStatus execute(Arguments&&... arguments)
    {
        return execute(std::unique_ptr<Edit>(new Made(std::forward<Arguments>(arguments)...)));
    }

private:
    std::unique_ptr<Edit> m_edit;
};
