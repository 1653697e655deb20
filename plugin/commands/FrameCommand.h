#pragma once

#include "commands/EditCommand.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

#include <QString>

class BaseNode;

/// Edits the frames of a camera's active layer over time: all but the copy are steps to undo.
class FrameCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;

private:
    struct Mode;
    static const Mode kModes[];

    static const Mode* takenMode(const MArgDatabase& args);
    bool readCamera(const MArgDatabase& args, const Mode* mode);

    MStatus insert(const MArgDatabase& args, BaseNode& node);
    MStatus duplicate(const MArgDatabase& args, BaseNode& node);
    MStatus deleteFrames(const MArgDatabase& args, BaseNode& node);
    MStatus cut(const MArgDatabase& args, BaseNode& node);
    MStatus copy(const MArgDatabase& args, BaseNode& node);
    MStatus paste(const MArgDatabase& args, BaseNode& node);
    MStatus clear(const MArgDatabase& args, BaseNode& node);
    MStatus stepForward(const MArgDatabase& args, BaseNode& node);
    MStatus stepBack(const MArgDatabase& args, BaseNode& node);
    MStatus retime(const MArgDatabase& args, BaseNode& node);
    MStatus move(const MArgDatabase& args, BaseNode& node);

    QString m_camera;
};
