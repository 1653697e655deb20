#include "commands/LayerCommand.h"

#include "commands/ActivateLayer.h"
#include "commands/Arguments.h"
#include "commands/Flags.h"
#include "commands/LayerListEdits.h"
#include "commands/LayerMoveEdits.h"
#include "model/LayerManager.h"
#include "node/MasterDrawing.h"
#include "settings/Messages.h"
#include "settings/Text.h"

#include <maya/MArgList.h>

namespace {

// Some long names are registered without a dash. Callers type it all the same.
const Flag kFlags[] = {
    {"-act", "-active", MSyntax::kUnsigned},
    {"-cnt", "-count"},
    {"-add", "-addLayer"},
    {"-ins", "-insert", MSyntax::kLong},
    {"-del", "-delete", MSyntax::kUnsigned},
    {"-da", "-deleteAll"},
    {"-mv", "-move", MSyntax::kUnsigned, MSyntax::kLong},
    {"-mva", "-moveAll", MSyntax::kString},
    {"-n", "-name", MSyntax::kString},
    {"-nc", "-newCamera", MSyntax::kString},
    {"-en", "editName", MSyntax::kString, MSyntax::kUnsigned},
    {"-qn", "queryName", MSyntax::kUnsigned},
    {"-ev", "editVis", MSyntax::kBoolean, MSyntax::kUnsigned},
    {"-qv", "queryVis", MSyntax::kUnsigned},
    {"-eo", "editOpacity", MSyntax::kDouble, MSyntax::kUnsigned},
    {"-qo", "queryOpacity", MSyntax::kUnsigned},
    {"-es", "editState", MSyntax::kUnsigned, MSyntax::kUnsigned},
    {"-qs", "queryState", MSyntax::kUnsigned},
    {"-ls", "layerState", MSyntax::kUnsigned},
    {"-ifw", "importFramewright", MSyntax::kString, MSyntax::kString},
};

/// An import brings in nothing of this system's own; it is a step to undo all the same.
class ImportNothing : public Edit {
public:
    MStatus redo() override { return MStatus::kSuccess; }
    MStatus undo() override { return MStatus::kSuccess; }
};

MString asResult(const QString& name)
{
    return toMString(name);
}

bool asResult(bool visible)
{
    return visible;
}

double asResult(float opacity)
{
    return static_cast<double>(opacity);
}

unsigned int asResult(int state)
{
    return static_cast<unsigned int>(state);
}

MStatus failure(const QString& message)
{
    messages::error(message);
    return MStatus::kFailure;
}

MStatus invalidParameter(const char* message)
{
    messages::error(message);
    return MStatus::kInvalidParameter;
}

const LayerProperty<QString, const QString&> kName = {&LayerManager::layerName, &LayerManager::renameLayer,
                                                      &LayerManager::restoreLayerName};
const LayerProperty<bool, bool> kVisibility = {&LayerManager::layerVisible, &LayerManager::setLayerVisible,
                                               &LayerManager::setLayerVisible};
const LayerProperty<float, float> kOpacity = {&LayerManager::layerOpacity, &LayerManager::setLayerOpacity,
                                              &LayerManager::setLayerOpacity};
const LayerProperty<int, int> kState = {&LayerManager::layerState, &LayerManager::setLayerState,
                                        &LayerManager::setLayerState};

}  // namespace

/// Modes in order of precedence.
struct LayerCommand::Mode {
    const char* flag;
    MStatus (LayerCommand::*run)(const MArgDatabase& args, LayerManager& manager);  // null: only to edit or query
    const char* withoutNode;  // what is said when the scene has no drawing; null for what most say
};

const LayerCommand::Mode LayerCommand::kModes[] = {
    {"-active", nullptr, nullptr},
    {"-count", &LayerCommand::count, nullptr},
    {"-addLayer", &LayerCommand::addLayer, "Failed to add layer. Node does not exist."},
    {"-insert", &LayerCommand::insertLayer, "Failed to insert layer. Node does not exist."},
    {"-delete", &LayerCommand::deleteLayer, nullptr},
    {"-deleteAll", &LayerCommand::deleteAll, nullptr},
    {"-move", &LayerCommand::move, nullptr},
    {"-moveAll", &LayerCommand::moveAll, nullptr},
    {"-editName", &LayerCommand::editName, nullptr},
    {"-queryName", &LayerCommand::queryName, nullptr},
    {"-editVis", &LayerCommand::editVisibility, nullptr},
    {"-queryVis", &LayerCommand::queryVisibility, nullptr},
    {"-editOpacity", &LayerCommand::editOpacity, nullptr},
    {"-queryOpacity", &LayerCommand::queryOpacity, nullptr},
    {"-editState", &LayerCommand::editState, nullptr},
    {"-queryState", &LayerCommand::queryState, nullptr},
    {"-importFramewright", &LayerCommand::importDrawing, nullptr},
};

void* LayerCommand::creator()
{
    return new LayerCommand;
}

MSyntax LayerCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    // No minimum: that the camera is missing is ours to say.
    syntax.setObjectType(MSyntax::kStringObjects);
    syntax.enableEdit(true);
    syntax.enableQuery(true);
    return syntax;
}

const LayerCommand::Mode* LayerCommand::takenMode(const MArgDatabase& args)
{
    for (const Mode& mode : kModes) {
        if (args.isFlagSet(mode.flag)) {
            return &mode;
        }
    }
    return nullptr;
}

MStatus LayerCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    if (!status) {
        return status;
    }
    if (!readCameraArgument(args, m_camera)) {
        return MStatus::kFailure;
    }
    const Mode* mode = takenMode(args);
    const std::shared_ptr<LayerManager> manager = masterDrawing();
    if (!manager && !(mode && mode->withoutNode)) {
        return failure("Node not found");
    }
    if (args.isEdit()) {
        return mode == kModes ? makeActive(args, *manager) : invalidParameter("Invalid edit parameter");
    }
    if (args.isQuery()) {
        return mode == kModes ? queryActive(args, *manager) : invalidParameter("Invalid query parameter");
    }
    if (!mode || !mode->run) {
        return invalidParameter("Invalid command parameters");
    }
    return manager ? (this->*mode->run)(args, *manager) : failure(mode->withoutNode);
}

// The active layer and the list ---------------------------------------------------------------------------------------

MStatus LayerCommand::makeActive(const MArgDatabase& args, LayerManager&)
{
    const int index = numberArgument(args, "-active");
    const MStatus status = execute<ActivateLayer>(m_camera, index);
    if (status) {
        setResult(static_cast<unsigned int>(index));
    }
    return status;
}

MStatus LayerCommand::queryActive(const MArgDatabase&, LayerManager& manager)
{
    setResult(manager.activeLayerIndex(m_camera));
    return MStatus::kSuccess;
}

MStatus LayerCommand::count(const MArgDatabase&, LayerManager& manager)
{
    setResult(manager.layerCount(m_camera));
    return MStatus::kSuccess;
}

// Without a state the new layer stays and the command fails: it is meant, as for an insertion. Only a layer with a
// state is a step to undo.
MStatus LayerCommand::addLayer(const MArgDatabase& args, LayerManager& manager)
{
    const QString name = textArgument(args, "-name");
    const int state = layerStateArgument(args, "-layerState");
    if (state < 0) {
        manager.insertLayer(m_camera, -1, name);
        return MStatus::kFailure;
    }
    std::unique_ptr<AddLayer> edit(new AddLayer(m_camera, name, state));
    const AddLayer& added = *edit;
    const MStatus status = execute(std::move(edit));
    if (status) {
        setResult(static_cast<unsigned int>(added.index()));
    }
    return status;
}

// Fails always, for it never has a state, see addLayer.
MStatus LayerCommand::insertLayer(const MArgDatabase& args, LayerManager& manager)
{
    manager.insertLayer(m_camera, numberArgument(args, "-insert"), textArgument(args, "-name"));
    return MStatus::kFailure;
}

MStatus LayerCommand::deleteLayer(const MArgDatabase& args, LayerManager&)
{
    return execute<DeleteLayer>(m_camera, numberArgument(args, "-delete"));
}

MStatus LayerCommand::deleteAll(const MArgDatabase&, LayerManager&)
{
    return execute<DeleteAllLayers>(m_camera);
}

// Moves ---------------------------------------------------------------------------------------------------------------

template <class Move>
MStatus LayerCommand::executeMove(std::unique_ptr<Move> edit)
{
    const Move& move = *edit;
    const MStatus status = execute(std::move(edit));
    if (status) {
        setResult(move.landing());
    }
    return status;
}

MStatus LayerCommand::move(const MArgDatabase& args, LayerManager&)
{
    const int from = numberArgument(args, "-move", 0);
    const int to = numberArgument(args, "-move", 1);
    if (!args.isFlagSet("-newCamera")) {
        return executeMove(std::unique_ptr<MoveLayer>(new MoveLayer(m_camera, from, to)));
    }
    const QString toCamera = textArgument(args, "-newCamera");
    if (toCamera == m_camera) {
        return MStatus::kFailure;
    }
    return executeMove(std::unique_ptr<MoveLayerToCamera>(new MoveLayerToCamera(m_camera, from, toCamera, to)));
}

MStatus LayerCommand::moveAll(const MArgDatabase& args, LayerManager&)
{
    const QString toCamera = textArgument(args, "-moveAll");
    if (toCamera == m_camera) {
        return MStatus::kFailure;
    }
    return execute<MoveAllLayers>(m_camera, toCamera);
}

// Properties ----------------------------------------------------------------------------------------------------------

template <class Value, class Argument>
MStatus LayerCommand::editProperty(const LayerProperty<Value, Argument>& property, int index, int shownIndex,
                                   const Value& value)
{
    return execute(
        std::unique_ptr<Edit>(new LayerPropertyEdit<Value, Argument>(property, m_camera, index, shownIndex, value)));
}

template <class Value, class Argument>
MStatus LayerCommand::queryProperty(const LayerProperty<Value, Argument>& property, int index,
                                    const LayerManager& manager)
{
    if (!hasLayer(manager, m_camera, index, index)) {
        return MStatus::kFailure;
    }
    setResult(asResult((manager.*property.get)(m_camera, index)));
    return MStatus::kSuccess;
}

MStatus LayerCommand::editName(const MArgDatabase& args, LayerManager&)
{
    const int index = numberArgument(args, "-editName", 1);
    return editProperty(kName, index, index, textArgument(args, "-editName"));
}

MStatus LayerCommand::queryName(const MArgDatabase& args, LayerManager& manager)
{
    return queryProperty(kName, numberArgument(args, "-queryName"), manager);
}

MStatus LayerCommand::editVisibility(const MArgDatabase& args, LayerManager&)
{
    const int index = numberArgument(args, "-editVis", 1);
    return editProperty(kVisibility, index, index, args.flagArgumentBool("-editVis", 0));
}

MStatus LayerCommand::queryVisibility(const MArgDatabase& args, LayerManager& manager)
{
    return queryProperty(kVisibility, numberArgument(args, "-queryVis"), manager);
}

MStatus LayerCommand::editOpacity(const MArgDatabase& args, LayerManager&)
{
    const int index = numberArgument(args, "-editOpacity", 1);
    double opacity = 0.0;
    args.getFlagArgument("-editOpacity", 0, opacity);
    return editProperty(kOpacity, index, index, static_cast<float>(opacity));
}

MStatus LayerCommand::queryOpacity(const MArgDatabase& args, LayerManager& manager)
{
    return queryProperty(kOpacity, numberArgument(args, "-queryOpacity"), manager);
}

// Of a missing layer the report shows the state and not the index: it is meant.
MStatus LayerCommand::editState(const MArgDatabase& args, LayerManager&)
{
    const int state = numberArgument(args, "-editState", 0);
    if (state < 0 || state >= kLayerStateCount) {
        return failure(QString("Invalid state value: %1").arg(state));
    }
    return editProperty(kState, numberArgument(args, "-editState", 1), state, state);
}

MStatus LayerCommand::queryState(const MArgDatabase& args, LayerManager& manager)
{
    return queryProperty(kState, numberArgument(args, "-queryState"), manager);
}

MStatus LayerCommand::importDrawing(const MArgDatabase&, LayerManager&)
{
    return execute<ImportNothing>();
}
