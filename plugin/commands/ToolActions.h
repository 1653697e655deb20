#pragma once

#include "settings/ToolType.h"

#include <maya/MArgDatabase.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>

#include <QColor>

// What the util command does with the tools and their settings.

/// Makes a tool context current: the one made before, or a new one when the host does not know it any more.
MStatus useDrawContext();
MStatus useTransformContext();
/// Makes the draw tool current and has it draw with a tool.
MStatus useTool(ToolType tool);

/// Stores the values of a tool's options flag: size and opacity, then what that tool has besides.
MStatus setToolOptions(const MArgDatabase& args, const char* flag, ToolType tool);

/// Three values of a flag as an opaque colour. False, and reported, when one is above 255.
bool readColourArgument(const MArgDatabase& args, const char* flag, QColor& colour);
MIntArray components(const QColor& colour);  ///< red, green and blue, 0..255
