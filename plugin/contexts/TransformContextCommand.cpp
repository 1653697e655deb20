#include "contexts/TransformContextCommand.h"

#include "contexts/TransformContext.h"

void* TransformContextCommand::creator()
{
    return new TransformContextCommand;
}

MPxContext* TransformContextCommand::makeObj()
{
    return new TransformContext;
}
