#include "settings/ScriptBridge.h"

#include "settings/ScriptTemplates.h"
#include "settings/ToolGesture.h"

#include <QRegularExpression>

#include <initializer_list>

namespace script {

namespace {

bool s_isCreationPending = false;  // of the drawing node

QStringList numbers(std::initializer_list<int> values)
{
    QStringList texts;
    for (const int value : values) {
        texts << QString::number(value);
    }
    return texts;
}

QStringList components(const QColor& colour)
{
    return numbers({colour.red(), colour.green(), colour.blue()});
}

QStringList fractions(const QColor& colour)
{
    return {QString::number(colour.redF()), QString::number(colour.greenF()), QString::number(colour.blueF())};
}

/// Runs the row that an enumerator names; false when there is none for it.
template <class Enum, std::size_t Count>
bool runRow(const Template (&rows)[Count], Enum which, const QStringList& values = QStringList())
{
    const auto index = static_cast<std::size_t>(which);
    return index < Count && run(rows[index], values);
}

}  // namespace

QString escaped(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '\0': break;
        case '"': result += QLatin1String("\\\""); break;
        case '\\': result += QLatin1String("\\\\"); break;
        case '\n': result += QLatin1String("\\n"); break;
        case '\t': result += QLatin1String("\\t"); break;
        case '\r': result += QLatin1String("\\r"); break;
        default: result += c;
        }
    }
    return result;
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + escaped(text) + QLatin1Char('"');
}

QString word(const QString& name)
{
    // A node may be called what the script language keeps for itself.
    static const QString kPart(
        "(?!(break|case|catch|catchQuiet|continue|default|do|else|false|float|for|global|if|in|int|"
        "matrix|no|off|on|proc|return|string|switch|true|vector|while|yes)\\b)[A-Za-z_]\\w*");
    static const QRegularExpression kLegalName(QString("\\A[|:]?%1([|:]%1)*\\z").arg(kPart));
    return kLegalName.match(name).hasMatch() ? name : quoted(name);
}

bool editFrames(FrameAction action)
{
    return runRow(templates::kFrames, action);
}

bool retimeFrames(int value, bool relative, bool moveToNext)
{
    QString flags;
    if (relative) {
        flags += QLatin1String(" -relative");
    }
    if (moveToNext) {
        flags += QLatin1String(" -moveToNext");
    }
    return run(templates::kRetime, {QString::number(value), flags});
}

bool moveFrames(int offset, int first, int last)
{
    return run(templates::kMoveFrames, numbers({offset, first, last}));
}

bool commitStroke(const QString& camera, int createdLayer, bool frameCreated)
{
    QString created;
    if (createdLayer >= 0) {
        created += QLatin1String(" -la ") + QString::number(createdLayer);
    }
    if (frameCreated) {
        created += QLatin1String(" -fa");
    }
    return run(templates::kCommitStroke, {created, word(camera)});
}

bool createDrawingNodeOnIdle(const FirstLayer* layer)
{
    if (!layer && s_isCreationPending) {
        return true;
    }
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
    const Template& row = templates::kCreateNode;
    s_isCreationPending = MGlobal::executeCommandOnIdle(toMString(filled(row, {flags})), row.display);
    return s_isCreationPending;
}

void drawingNodeCommandRan()
{
    s_isCreationPending = false;
}

bool addLayer(const QString& camera, const QString& name, int state)
{
    QString flags;
    if (!name.isEmpty()) {
        flags += QLatin1String(" -n ") + quoted(name);
    }
    if (state >= 0) {
        flags += QLatin1String(" -ls ") + QString::number(state);
    }
    return run(templates::kAddLayer, {flags, word(camera)});
}

bool setActiveLayer(const QString& camera, int index)
{
    return run(templates::kSetActiveLayer, numbers({index}) << word(camera));
}

bool deleteLayer(const QString& camera, int index)
{
    return run(templates::kDeleteLayer, numbers({index}) << word(camera));
}

bool renameLayer(const QString& camera, int index, const QString& name)
{
    return run(templates::kRenameLayer, {quoted(name), QString::number(index), word(camera)});
}

bool setLayerState(const QString& camera, int index, int state)
{
    return run(templates::kSetLayerState, numbers({state, index}) << word(camera));
}

bool setLayerVisible(const QString& camera, int index, bool visible)
{
    return run(templates::kSetLayerVisible, numbers({visible, index}) << word(camera));
}

bool moveLayer(const QString& camera, int from, int to)
{
    return run(templates::kMoveLayer, numbers({from, to}) << word(camera));
}

bool moveAllLayers(const QString& camera, const QString& toCamera)
{
    return run(templates::kMoveAllLayers, {word(toCamera), word(camera)});
}

bool moveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex)
{
    return run(templates::kMoveLayerToCamera, QStringList(word(toCamera)) << numbers({index, toIndex}) << word(camera));
}

bool selectTool(ToolType tool)
{
    toolGesture::finish();
    return runRow(templates::kTools, tool);
}

bool switchToDrawToolDeferred()
{
    return runDeferred(templates::kUseDrawTool);
}

bool switchToTransformToolDeferred()
{
    return runDeferred(templates::kUseTransformTool);
}

bool setCurrentTool(const QString& contextName)
{
    toolGesture::finish();
    return run(templates::kSetTool, {word(contextName)});
}

bool setSelectTool()
{
    toolGesture::finish();
    return run(templates::kSetSelectTool);
}

bool setToolOptions(ToolType tool, const ToolOptions& options)
{
    return runRow(templates::kToolOptions, tool,
                  numbers({options.size, options.opacity, options.hardness, options.tablet})
                      << quoted(options.fontFamily));
}

bool setDrawColour(const QColor& colour)
{
    return run(templates::kDrawColour, components(colour));
}

bool showGhosts(GhostSide side, GhostSwitch show)
{
    return runRow(templates::kShowGhosts, side, numbers({static_cast<int>(show)}));
}

bool setGhostCount(GhostSide side, int count)
{
    return runRow(templates::kGhostCount, side, numbers({count}));
}

bool setGhostColour(GhostSide side, const QColor& colour)
{
    return runRow(templates::kGhostColour, side, components(colour));
}

bool setGhostColourOverride(bool on)
{
    return run(templates::kGhostColourOverride, numbers({on}));
}

bool setTimelineFrameDisplay(int display)
{
    return run(templates::kTimelineDisplay, numbers({display}));
}

bool refreshTimelineDisplay()
{
    return run(templates::kRefreshTimeline);
}

bool openPanel(Panel panel)
{
    return runRow(templates::kPanels, panel);
}

bool openDialog(Dialog dialog)
{
    return runRow(templates::kDialogs, dialog);
}

bool openLayerProperties()
{
    return run(templates::kLayerProperties);
}

bool openNewLayerDialogDeferred()
{
    return runDeferred(templates::kDialogs[static_cast<int>(Dialog::NewLayer)]);
}

bool refreshLayerManagerDeferred()
{
    return runDeferred(templates::kRefreshLayerManager);
}

QString createColourSlider(const QString& name, int swatchWidth)
{
    MString made;
    return ask(templates::kMakeColourSlider, made, numbers({swatchWidth}) << word(name)) ? toQString(made) : QString();
}

bool setColourOfSlider(const QString& slider, const QColor& colour)
{
    return run(templates::kSetSliderColour, fractions(colour) << word(slider));
}

bool refreshToolboxWithSlider(const QString& slider)
{
    return run(templates::kSetSliderCommand, {quoted(filled(templates::kRefreshToolbox)), word(slider)});
}

bool cleanUp(Cleanup what)
{
    return runRow(templates::kCleanups, what);
}

bool stopPlaybackJob(int job)
{
    return run(templates::kStopPlaybackJob, numbers({job}));
}

}  // namespace script
