#pragma once

namespace kernel {
class Session;
}

namespace mel {

class Interpreter;

// Each registers the commands or functions of one subject.
void addNodeCommands(kernel::Session& session);        ///< createNode delete rename select
void addDuplicateCommand(kernel::Session& session);    ///< duplicate
void addNamespaceCommand(kernel::Session& session);    ///< namespace
void addParentCommand(kernel::Session& session);       ///< parent
void addListCommands(kernel::Session& session);        ///< ls listRelatives objExists nodeType objectType
void addAttributeCommands(Interpreter& interpreter);   ///< setAttr getAttr
void addConnectionCommands(kernel::Session& session);  ///< connectAttr disconnectAttr isConnected listConnections
void addKeyCommands(kernel::Session& session);         ///< setKeyframe keyframe cutKey keyTangent findKeyframe
void addMoveCommand(kernel::Session& session);         ///< move
void addCameraCommand(kernel::Session& session);       ///< camera
void addImagePlaneCommand(kernel::Session& session);   ///< imagePlane
void addTimeCommands(kernel::Session& session);        ///< currentTime currentUnit timeControl
void addPlaybackCommands(kernel::Session& session);    ///< playbackOptions play
void addUndoCommands(kernel::Session& session);        ///< undo redo undoInfo flushUndo
void addFileCommand(kernel::Session& session);         ///< file
void addSessionCommands(kernel::Session& session);     ///< about commandEcho internalVar timerX
void addConditionCommands(kernel::Session& session);   ///< condition isTrue
void addDeferredCommands(kernel::Session& session);    ///< evalDeferred
void addScriptJobCommand(kernel::Session& session);    ///< scriptJob
void addOptionVarCommand(kernel::Session& session);    ///< optionVar
void addLanguageFunctions(Interpreter& interpreter);   ///< print size eval error warning source exists whatIs ...
void addArrayFunctions(Interpreter& interpreter);      ///< clear stringArrayContains ...
void addTextFunctions(Interpreter& interpreter);       ///< tokenize substring substitute match format ...
void addMathFunctions(Interpreter& interpreter);       ///< abs min max clamp ...

}  // namespace mel
