#include "settings/ScriptBridge.h"

#include "settings/Messages.h"
#include "settings/Names.h"
#include "settings/Text.h"

#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <QRegularExpression>

namespace script {

namespace {

// A command text, in which %1, %2 ... stand for what is filled in, and how it runs: echoed to the script editor or not,
// recorded for undo or not.
struct Template {
    const char* text;
    bool display;
    bool undo;
};

constexpr Template kCommitStroke = {"%1%2 %3", false, true};
constexpr Template kCreateNode = {"%1%2", false, true};
constexpr Template kSetActiveLayer = {"%1 -e -active %2 %3", false, true};
constexpr Template kDeferred = {"evalDeferred(%1)", false, false};
constexpr Template kSetTool = {"setToolTo %1", false, false};
constexpr Template kContextExists = {"contextInfo -exists %1", false, false};
constexpr Template kIsBatch = {"about -batch", false, false};
constexpr Template kStartPlaybackJob = {"scriptJob -cf \"playingBack\" %1", false, false};
constexpr Template kStopPlaybackJob = {"scriptJob -f -k %1", false, false};
constexpr Template kUserPrefDir = {"internalVar -userPrefDir", false, false};
constexpr Template kTimeControlName = {"$tempVar = $gPlayBackSlider", false, false};
constexpr Template kHighlightedSpan = {"timeControl -q -rangeArray $gPlayBackSlider", false, false};
constexpr Template kSceneCameras = {"ls -cameras", false, false};

// Texts that are parts of others.
constexpr char kLayerCreated[] = " -la %1";
constexpr char kFrameCreated[] = " -fa";
constexpr char kUseDrawTool[] = "%1 -draw";
constexpr char kUseTransformTool[] = "%1 -transform";
constexpr char kNewLayerDialog[] = "%1 -newLayer";
constexpr char kRefreshLayerManager[] = "%1 -rlm";
constexpr char kRefreshGhosts[] = "%1 -rg";

// Fills the places in one pass, so that a %1 in what is filled in stays what it is. All templates have fewer than ten
// places.
QString filled(const char* format, const QStringList& values = QStringList())
{
    const QString text = QLatin1String(format);
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('%') && i + 1 < text.size() && text[i + 1].isDigit()) {
            ++i;
            result += values.value(text[i].digitValue() - 1);
        } else {
            result += text[i];
        }
    }
    return result;
}

bool run(const Template& command, const QStringList& values = QStringList())
{
    return MGlobal::executeCommand(toMString(filled(command.text, values)), command.display, command.undo);
}

template <class Result>
bool ask(const Template& command, Result& result, const QStringList& values = QStringList())
{
    return MGlobal::executeCommand(toMString(filled(command.text, values)), result, command.display, command.undo);
}

QString utilCommand(const char* format)
{
    return filled(format, {QLatin1String(names::kUtilCommand)});
}

bool runDeferred(const QString& command)
{
    return run(kDeferred, {quoted(command)});
}

}  // namespace

QString quoted(const QString& text)
{
    QString result(QLatin1Char('"'));
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '"': result += QLatin1String("\\\""); break;
        case '\\': result += QLatin1String("\\\\"); break;
        case '\n': result += QLatin1String("\\n"); break;
        case '\t': result += QLatin1String("\\t"); break;
        case '\r': result += QLatin1String("\\r"); break;
        default:
            if (c.category() != QChar::Other_Control) {
                result += c;
            }
        }
    }
    return result + QLatin1Char('"');
}

QString word(const QString& name)
{
    static const QRegularExpression kLegalName("\\A[|:]?[A-Za-z_]\\w*([|:][A-Za-z_]\\w*)*\\z");
    return kLegalName.match(name).hasMatch() ? name : quoted(name);
}

bool commitStroke(const QString& camera, int createdLayer, bool frameCreated)
{
    QString created;
    if (createdLayer >= 0) {
        created += filled(kLayerCreated, {QString::number(createdLayer)});
    }
    if (frameCreated) {
        created += filled(kFrameCreated);
    }
    return run(kCommitStroke, {QLatin1String(names::kStrokeCommand), created, word(camera)});
}

bool createDrawingNodeOnIdle(const FirstLayer* layer)
{
    QString flags;
    if (layer) {
        flags += QLatin1String(" -l");
        if (!layer->camera.isEmpty()) {
            flags += QLatin1String(" -c ") + word(layer->camera);
        }
        if (!layer->name.isEmpty()) {
            flags += QLatin1String(" -ln ") + quoted(layer->name);
        }
        if (layer->state >= 0) {
            flags += QLatin1String(" -ls ") + QString::number(layer->state);
        }
        if (layer->withFrames) {
            flags += QLatin1String(" -f");
        }
    }
    const QString command = filled(kCreateNode.text, {QLatin1String(names::kNodeCommand), flags});
    return MGlobal::executeCommandOnIdle(toMString(command), kCreateNode.display);
}

bool setActiveLayer(const QString& camera, int index)
{
    return run(kSetActiveLayer, {QLatin1String(names::kLayerCommand), QString::number(index), word(camera)});
}

bool switchToDrawToolDeferred()
{
    return runDeferred(utilCommand(kUseDrawTool));
}

bool switchToTransformToolDeferred()
{
    return runDeferred(utilCommand(kUseTransformTool));
}

bool openNewLayerDialogDeferred()
{
    return runDeferred(utilCommand(kNewLayerDialog));
}

bool refreshLayerManagerDeferred()
{
    return runDeferred(utilCommand(kRefreshLayerManager));
}

bool setCurrentTool(const QString& contextName)
{
    return run(kSetTool, {word(contextName)});
}

bool contextExists(const QString& contextName)
{
    int exists = 0;
    return ask(kContextExists, exists, {word(contextName)}) && exists != 0;
}

bool isBatch()
{
    int batch = 0;
    return ask(kIsBatch, batch) && batch != 0;
}

int startPlaybackJob()
{
    int job = -1;
    const QString refresh = filled(kRefreshGhosts, {QLatin1String(names::kNodeCommand)});
    return ask(kStartPlaybackJob, job, {quoted(refresh)}) ? job : -1;
}

bool stopPlaybackJob(int job)
{
    return run(kStopPlaybackJob, {QString::number(job)});
}

QString userPrefDir()
{
    MString folder;
    return ask(kUserPrefDir, folder) ? toQString(folder) : QString();
}

QString timeControlName()
{
    MString name;
    if (!ask(kTimeControlName, name) || name.length() == 0) {
        messages::error(QString("Failed to get time control name"));
        return QString();
    }
    return toQString(name);
}

FrameSpan highlightedSpan()
{
    MDoubleArray range;
    if (!ask(kHighlightedSpan, range) || range.length() < 2) {
        return {0, 0};
    }
    return {static_cast<int>(range[0]), static_cast<int>(range[1])};
}

QStringList sceneCameras()
{
    QStringList cameras;
    MStringArray shapes;
    if (!ask(kSceneCameras, shapes)) {
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

bool cameraExists(const QString& camera)
{
    return sceneCameras().contains(camera);
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
