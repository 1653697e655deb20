#pragma once

#include <maya/MPxContextCommand.h>

/// Makes transform tools.
class TransformContextCommand : public MPxContextCommand {
public:
    static void* creator();
    MPxContext* makeObj() override;
};
