#pragma once

#include "settings/FrameSpan.h"

#include <maya/MDagPath.h>

#include <QString>
#include <QStringList>

/// Everything the plug-in asks of the host by command text. Each text is built from a row of one table, and every
/// argument is written through one escaping function, so that nothing a user types can become script.
/// Functions that act give false when the host reported failure; the host words the message.
namespace script {

// Writing arguments ---------------------------------------------------------------------------------------------------

/// A script string literal: quotes around, quotes, back-slashes and control characters inside escaped.
QString quoted(const QString& text);
/// A node name as a bare word; a text that is no legal node name becomes a string literal.
QString word(const QString& name);

// Drawing -------------------------------------------------------------------------------------------------------------

/// Commits the pending stroke as one undo step. createdLayer: index of the layer made for it, -1 for none.
bool commitStroke(const QString& camera, int createdLayer, bool frameCreated);

/// The first layer of a drawing that is about to be made.
struct FirstLayer {
    QString camera;   ///< empty: the active view's
    QString name;     ///< empty: the manager names it
    int state;        ///< 0..2, -1 for the default
    bool withFrames;  ///< key the highlighted time range
};

/// Creates the scene's drawing node when the host is next idle; with a first layer when one is given.
bool createDrawingNodeOnIdle(const FirstLayer* layer = nullptr);

/// Adds a step that makes the layer the active one of its camera, and that camera current.
bool setActiveLayer(const QString& camera, int index);

// Tools, panels and menus ---------------------------------------------------------------------------------------------

bool switchToDrawToolDeferred();
bool switchToTransformToolDeferred();
bool openNewLayerDialogDeferred();
bool refreshLayerManagerDeferred();

/// Makes a tool context current; false for an unknown one.
bool setCurrentTool(const QString& contextName);
bool contextExists(const QString& contextName);

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

/// The keys of all the scene's cameras, in the host's order.
QStringList sceneCameras();
bool cameraExists(const QString& camera);
/// The name under which a camera's layers are kept: its transform's shortest unique name. The path may end at the
/// transform or at the camera shape; an invalid path gives an empty name.
QString cameraKey(const MDagPath& camera);

}  // namespace script
