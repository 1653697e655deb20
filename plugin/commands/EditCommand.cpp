#include "commands/EditCommand.h"

MStatus EditCommand::execute(std::unique_ptr<Edit> edit)
{
    const MStatus status = edit->execute();
    if (status) {
        m_edit = std::move(edit);
    }
    return status;
}

MStatus EditCommand::redoIt()
{
    return m_edit ? m_edit->redo() : MStatus(MStatus::kFailure);
}

MStatus EditCommand::undoIt()
{
    return m_edit ? m_edit->undo() : MStatus(MStatus::kFailure);
}

bool EditCommand::isUndoable() const
{
    return m_edit != nullptr;
}
