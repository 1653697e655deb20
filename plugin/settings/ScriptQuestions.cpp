// The part of the script bridge that asks the host instead of having it do something.

#include "settings/Messages.h"
#include "settings/Rounding.h"
#include "settings/ScriptBridge.h"
#include "settings/ScriptTemplates.h"

#include <maya/MDoubleArray.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

namespace script {

namespace {

bool isTrue(const Template& row, const QStringList& values = QStringList())
{
    int answer = 0;
    return ask(row, answer, values) && answer != 0;
}

/// Empty when the host has no answer.
QString text(const Template& row, const QStringList& values = QStringList())
{
    MString answer;
    return ask(row, answer, values) ? toQString(answer) : QString();
}

/// A camera lies right below a transform, and of all its paths the one that the host lists it by has the key.
bool isListedCamera(const MDagPath& transform, const QString& key)
{
    for (unsigned int i = 0; i < transform.childCount(); ++i) {
        MDagPath listed;
        const MObject child = transform.child(i);
        if (child.hasFn(MFn::kCamera) && MDagPath::getAPathTo(child, listed) && cameraKey(listed) == key) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool isBatch()
{
    return isTrue(templates::kIsBatch);
}

int startPlaybackJob()
{
    int job = -1;
    return ask(templates::kStartPlaybackJob, job, {quoted(filled(templates::kRefreshGhosts))}) ? job : -1;
}

bool contextExists(const QString& contextName)
{
    return isTrue(templates::kContextExists, {word(contextName)});
}

QString currentToolClass()
{
    return text(templates::kContextClass, {word(text(templates::kCurrentContext))});
}

QColor colourOfSlider(const QString& slider)
{
    MDoubleArray rgb;
    if (!ask(templates::kSliderColour, rgb, {word(slider)}) || rgb.length() < 3) {
        return QColor();
    }
    return QColor::fromRgbF(qBound(0.0, rgb[0], 1.0), qBound(0.0, rgb[1], 1.0), qBound(0.0, rgb[2], 1.0));
}

QString userPrefDir()
{
    return text(templates::kUserPrefDir);
}

QString timeControlName()
{
    const QString name = text(templates::kTimeControlName);
    if (name.isEmpty()) {
        messages::error("Failed to get time control name");
    }
    return name;
}

FrameSpan highlightedSpan()
{
    MDoubleArray range;
    if (!ask(templates::kHighlightedSpan, range) || range.length() < 2) {
        return {0, 0};
    }
    return {truncated(range[0]), truncated(range[1])};
}

bool isSpanHighlighted()
{
    return isTrue(templates::kIsSpanHighlighted);
}

bool isPlaybackCached()
{
    return MGlobal::optionVarIntValue("cachedPlaybackEnable") != 0;
}

QStringList sceneCameras()
{
    QStringList cameras;
    MStringArray shapes;
    if (!ask(templates::kSceneCameras, shapes)) {
        return cameras;
    }
    for (unsigned int i = 0; i < shapes.length(); ++i) {
        MSelectionList list;
        MDagPath path;
        if (list.add(shapes[i]) && list.getDagPath(0, path)) {
            cameras.append(cameraKey(path));
        }
    }
    return cameras;
}

// One name is looked up instead of the keys of all cameras made. What it finds counts only under that very name: the
// name may be a pattern, or a shape's, or several nodes' at once.
bool cameraExists(const QString& camera)
{
    MSelectionList found;
    found.add(toMString(camera));
    for (unsigned int i = 0; i < found.length(); ++i) {
        MDagPath path;
        if (found.getDagPath(i, path) && cameraKey(path) == camera) {
            return isListedCamera(path, camera);
        }
    }
    return false;
}

QString cameraKey(const MDagPath& camera)
{
    if (!camera.isValid()) {
        return QString();
    }
    MDagPath transform(camera);
    // The path cannot be asked: one that ends at a transform answers for the shape below it too.
    if (!transform.node().hasFn(MFn::kTransform)) {
        transform.pop();
    }
    return toQString(transform.partialPathName());
}

}  // namespace script
