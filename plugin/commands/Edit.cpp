#include "commands/Edit.h"

#include "node/BaseNode.h"
#include "settings/ToolGesture.h"

MStatus DrawingEdit::execute()
{
    BaseNode* node = BaseNode::masterNode();
    return node ? executeOn(*node) : MStatus(MStatus::kFailure);
}

MStatus DrawingEdit::redo()
{
    return rerun(&DrawingEdit::redoOn);
}

MStatus DrawingEdit::undo()
{
    return rerun(&DrawingEdit::undoOn);
}

MStatus DrawingEdit::rerun(MStatus (DrawingEdit::*step)(BaseNode&))
{
    toolGesture::takeBack();
    BaseNode* node = BaseNode::masterNode();
    if (!node) {
        return MStatus::kFailure;
    }
    node->withdrawMadeStroke();
    return (this->*step)(*node);
}
