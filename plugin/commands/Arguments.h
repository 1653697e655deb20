#pragma once

#include <maya/MArgDatabase.h>

#include <QString>

class LayerManager;

// What a caller gave a command, as the plug-in's own types.

/// The value of a flag; empty or 0 when the flag is not set.
QString textArgument(const MArgDatabase& args, const char* flag, unsigned int index = 0);
int numberArgument(const MArgDatabase& args, const char* flag, unsigned int index = 0);
/// The same of an unsigned value; the largest int when it is larger than that.
int unsignedArgument(const MArgDatabase& args, const char* flag, unsigned int index = 0);
/// A layer's state, 0..2; an unknown one becomes kLayerAnim. -1 when the flag is not set.
int layerStateArgument(const MArgDatabase& args, const char* flag);

bool hasCameraArgument(const MArgDatabase& args);
/// The command's one object. False, and reported, when it is missing or is no camera of the scene.
bool readCameraArgument(const MArgDatabase& args, QString& camera);

/// Whether a camera has a layer. False is reported; shownIndex: what the report gives as the layer's index.
bool hasLayer(const LayerManager& manager, const QString& camera, int index, int shownIndex);
