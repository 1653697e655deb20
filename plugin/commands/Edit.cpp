#include "commands/Edit.h"

#include "node/BaseNode.h"

MStatus DrawingEdit::execute()
{
    BaseNode* node = BaseNode::masterNode();
    return node ? executeOn(*node) : MStatus(MStatus::kFailure);
}

MStatus DrawingEdit::redo()
{
    BaseNode* node = BaseNode::masterNode();
    return node ? redoOn(*node) : MStatus(MStatus::kFailure);
}

MStatus DrawingEdit::undo()
{
    BaseNode* node = BaseNode::masterNode();
    return node ? undoOn(*node) : MStatus(MStatus::kFailure);
}
