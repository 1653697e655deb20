#pragma once

#include "settings/FrameSpan.h"
#include "settings/Panels.h"
#include "settings/ToolType.h"

#include <maya/MDagPath.h>

#include <QColor>
#include <QString>
#include <QStringList>

/// Everything the plug-in asks of the host by command text. Each text is built from a row of one table, and every
/// argument is written through one escaping function, so that nothing a user types can become script.
/// Functions that act give false when the host reported failure; the host words the message.
namespace script {

// Writing arguments ---------------------------------------------------------------------------------------------------

/// What stands between the quotes of a script string literal: quotes, back-slashes, tabs and line ends escaped. A NUL
/// is left out: the host's texts end at it.
QString escaped(const QString& text);
/// A script string literal.
QString quoted(const QString& text);
/// A node name as a bare word; a text that is no legal node name, or holds a reserved word, becomes a string literal.
QString word(const QString& name);

// Frames --------------------------------------------------------------------------------------------------------------

enum class FrameAction { Insert, Duplicate, Delete, Cut, Copy, Paste, Clear, StepForward, StepBack };
bool editFrames(FrameAction action);
/// value: the gap between frames, or what is added to each gap when relative.
bool retimeFrames(int value, bool relative, bool moveToNext);
/// Moves the frames numbered first to last, both included.
bool moveFrames(int offset, int first, int last);

// Strokes and layers --------------------------------------------------------------------------------------------------

/// Commits the pending stroke as one undo step. createdLayer: index of the layer made for it, -1 for none.
bool commitStroke(const QString& camera, int createdLayer, bool frameCreated);

/// The first layer of a drawing that is about to be made.
struct FirstLayer {
    QString camera;   ///< empty: the active view's
    QString name;     ///< empty: the manager names it
    int state;        ///< 0..2, -1 for the default
    bool withFrames;  ///< key the highlighted time range
};

/// Creates the scene's drawing node when the host is next idle; with a first layer when one is given. One without asks
/// for nothing more while the node command has not answered an earlier call.
bool createDrawingNodeOnIdle(const FirstLayer* layer = nullptr);
void drawingNodeCommandRan();  ///< to be called by the node command when it was asked for a node

/// name: empty to have it named. state: 0..2, -1 for the default.
bool addLayer(const QString& camera, const QString& name, int state);
/// Adds a step that makes the layer the active one of its camera, and that camera current.
bool setActiveLayer(const QString& camera, int index);
bool deleteLayer(const QString& camera, int index);
bool renameLayer(const QString& camera, int index, const QString& name);
bool setLayerState(const QString& camera, int index, int state);
bool setLayerVisible(const QString& camera, int index, bool visible);
bool moveLayer(const QString& camera, int from, int to);
bool moveAllLayers(const QString& camera, const QString& toCamera);
/// toIndex: -1 for the top of the other camera's layers.
bool moveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex);

// Tools and their settings --------------------------------------------------------------------------------------------

/// Makes the draw tool current and has it draw with a tool; false for one that is not among the drawing tools.
bool selectTool(ToolType tool);
bool switchToDrawToolDeferred();
bool switchToTransformToolDeferred();
/// Makes a tool context current; false for an unknown one.
bool setCurrentTool(const QString& contextName);
bool contextExists(const QString& contextName);
/// What kind of tool is current; ours are of the classes that their commands are named by.
QString currentToolClass();
/// Makes the host's own selection tool current.
bool setSelectTool();

/// All that the options of any tool hold; each tool takes those it has.
struct ToolOptions {
    int size;
    int opacity;   ///< percent
    int hardness;  ///< percent
    bool tablet;
    QString fontFamily;
};
bool setToolOptions(ToolType tool, const ToolOptions& options);
bool setDrawColour(const QColor& colour);

enum class GhostSide { Previous, Next };
enum class GhostSwitch { Toggle = -1, Off = 0, On = 1 };
bool showGhosts(GhostSide side, GhostSwitch show);
bool setGhostCount(GhostSide side, int count);
bool setGhostColour(GhostSide side, const QColor& colour);
bool setGhostColourOverride(bool on);

/// display: 0 always, 1 while selected or drawing, 2 off.
bool setTimelineFrameDisplay(int display);
bool refreshTimelineDisplay();

// Panels --------------------------------------------------------------------------------------------------------------

bool openPanel(Panel panel);
bool openDialog(Dialog dialog);
bool openLayerProperties();  ///< of the active layer
bool openNewLayerDialogDeferred();
bool refreshLayerManagerDeferred();

/// Makes the host's colour control, its label and slider hidden. Gives its full name, empty when refused. The current
/// parent must be a layout. swatchWidth: pixels.
QString createColourSlider(const QString& name, int swatchWidth);
/// The colour of the control, one brighter than white cut down to what we can draw; invalid when there is no such
/// control.
QColor colourOfSlider(const QString& slider);
bool setColourOfSlider(const QString& slider, const QColor& colour);
/// Has the toolbox take up every colour the user picks.
bool refreshToolboxWithSlider(const QString& slider);

// Menu ----------------------------------------------------------------------------------------------------------------

/// Defines the menu script's procedures. Nothing of it is defined when this fails.
bool sourceMenuScript();
bool createMainMenu();
bool deleteMainMenu();
/// Has the menu show the active tool, the ghost switches and the timeline display as they are now. True, and nothing
/// done, while there is no menu.
bool notifyMainMenu();

/// Opens the floating view; a source camera's layers are moved into it, an empty one moves nothing.
bool openFloatingViewport(const QString& sourceCamera);

enum class Cleanup { ActiveLayer, ActiveCameraLayers, Everything };
bool cleanUp(Cleanup what);

// Life of the module --------------------------------------------------------------------------------------------------

bool isBatch();
/// Starts the script job that has the ghosts refreshed when playback stops. Gives its number, -1 when refused.
int startPlaybackJob();
bool stopPlaybackJob(int job);

// Questions -----------------------------------------------------------------------------------------------------------

/// The folder of the user's preferences; empty when the host gives none.
QString userPrefDir();
/// The time slider's control name; empty, and reported, when there is none.
QString timeControlName();
/// The highlighted range of the time slider; the current frame alone when nothing is highlighted. {0, 0} without a
/// time slider.
FrameSpan highlightedSpan();
bool isSpanHighlighted();
bool isPlaybackCached();

/// The keys of all the scene's cameras, in the host's order.
QStringList sceneCameras();
bool cameraExists(const QString& camera);
/// The name under which a camera's layers are kept: its transform's shortest unique name. The path may end at the
/// transform or at the camera shape; an invalid path gives an empty name.
QString cameraKey(const MDagPath& camera);

}  // namespace script
