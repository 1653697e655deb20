#include "mel/Builtins.h"

#include "mel/Interpreter.h"
#include "mel/builtins/Subjects.h"

#include <memory>

namespace mel {

namespace {

// Names the host's own scripts provide; a window gives those of its parts when it opens.
const char* const kGlobals[][2] = {
    {"gMainWindow", "MayaWindow"}, {"gPlayBackSlider", ""},           {"gSelect", "selectSuperContext"},
    {"gMove", "moveSuperContext"}, {"gRotate", "RotateSuperContext"}, {"gScale", "scaleSuperContext"},
    {"gMainPane", "viewPanes"},    {"gMainProgressBar", ""},
};

}  // namespace

void installScriptLanguage(kernel::Session& session)
{
    auto owned = std::make_unique<Interpreter>(session);
    Interpreter& interpreter = *owned;
    session.setScript(std::move(owned));
    for (const auto& global : kGlobals)
        interpreter.setGlobalString(global[0], global[1]);

    addNodeCommands(session);
    addDuplicateCommand(session);
    addNamespaceCommand(session);
    addParentCommand(session);
    addListCommands(session);
    addAttributeCommands(interpreter);
    addConnectionCommands(session);
    addKeyCommands(session);
    addMoveCommand(session);
    addCameraCommand(session);
    addImagePlaneCommand(session);
    addTimeCommands(session);
    addPlaybackCommands(session);
    addUndoCommands(session);
    addFileCommand(session);
    addSessionCommands(session);
    addConditionCommands(session);
    addDeferredCommands(session);
    addScriptJobCommand(session);
    addOptionVarCommand(session);

    addLanguageFunctions(interpreter);
    addArrayFunctions(interpreter);
    addTextFunctions(interpreter);
    addMathFunctions(interpreter);
}

}  // namespace mel
