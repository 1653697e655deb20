#include "commands/Arguments.h"

#include "model/LayerManager.h"
#include "settings/Messages.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <limits>

QString textArgument(const MArgDatabase& args, const char* flag, unsigned int index)
{
    MString text;
    args.getFlagArgument(flag, index, text);
    return toQString(text);
}

int numberArgument(const MArgDatabase& args, const char* flag, unsigned int index)
{
    int number = 0;
    args.getFlagArgument(flag, index, number);
    return number;
}

int unsignedArgument(const MArgDatabase& args, const char* flag, unsigned int index)
{
    constexpr unsigned int kLargest = std::numeric_limits<int>::max();
    unsigned int number = 0;
    args.getFlagArgument(flag, index, number);
    return int(std::min(number, kLargest));
}

int layerStateArgument(const MArgDatabase& args, const char* flag)
{
    int state = -1;
    if (args.getFlagArgument(flag, 0, state) && (state < 0 || state >= kLayerStateCount)) {
        return kLayerAnim;
    }
    return state;
}

bool hasCameraArgument(const MArgDatabase& args)
{
    MStringArray objects;
    args.getObjects(objects);
    return objects.length() > 0;
}

bool readCameraArgument(const MArgDatabase& args, QString& camera)
{
    MStringArray objects;
    args.getObjects(objects);
    if (objects.length() == 0) {
        messages::error("Camera not specified");
        return false;
    }
    camera = toQString(objects[0]);
    if (!script::cameraExists(camera)) {
        messages::error(QString("Camera does not exist: %1").arg(camera));
        return false;
    }
    return true;
}

bool hasLayer(const LayerManager& manager, const QString& camera, int index, int shownIndex)
{
    if (manager.isValidLayer(camera, index)) {
        return true;
    }
    messages::error(
        QString("Layer does not exist for camera (index): %1 (%2)").arg(camera, QString::number(shownIndex)));
    return false;
}
