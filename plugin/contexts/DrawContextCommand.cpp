#include "contexts/DrawContextCommand.h"

#include "contexts/DrawContext.h"

void* DrawContextCommand::creator()
{
    return new DrawContextCommand;
}

MPxContext* DrawContextCommand::makeObj()
{
    return new DrawContext;
}
