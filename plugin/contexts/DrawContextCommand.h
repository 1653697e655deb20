#pragma once

#include <maya/MPxContextCommand.h>

/// Makes draw tools.
class DrawContextCommand : public MPxContextCommand {
public:
    static void* creator();
    MPxContext* makeObj() override;
};
