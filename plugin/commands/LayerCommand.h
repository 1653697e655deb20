#pragma once

#include "commands/EditCommand.h"
#include "commands/LayerPropertyEdit.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

#include <QString>

/// Everything the user can do with the layers of one camera: each change is one step to undo.
class LayerCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;

private:
    struct Mode;
    static const Mode kModes[];

    static const Mode* takenMode(const MArgDatabase& args);

    MStatus makeActive(const MArgDatabase& args, LayerManager& manager);
    MStatus queryActive(const MArgDatabase& args, LayerManager& manager);
    MStatus count(const MArgDatabase& args, LayerManager& manager);
    MStatus addLayer(const MArgDatabase& args, LayerManager& manager);
    MStatus insertLayer(const MArgDatabase& args, LayerManager& manager);
    MStatus deleteLayer(const MArgDatabase& args, LayerManager& manager);
    MStatus deleteAll(const MArgDatabase& args, LayerManager& manager);
    MStatus move(const MArgDatabase& args, LayerManager& manager);
    MStatus moveAll(const MArgDatabase& args, LayerManager& manager);
    MStatus editName(const MArgDatabase& args, LayerManager& manager);
    MStatus queryName(const MArgDatabase& args, LayerManager& manager);
    MStatus editVisibility(const MArgDatabase& args, LayerManager& manager);
    MStatus queryVisibility(const MArgDatabase& args, LayerManager& manager);
    MStatus editOpacity(const MArgDatabase& args, LayerManager& manager);
    MStatus queryOpacity(const MArgDatabase& args, LayerManager& manager);
    MStatus editState(const MArgDatabase& args, LayerManager& manager);
    MStatus queryState(const MArgDatabase& args, LayerManager& manager);
    MStatus importDrawing(const MArgDatabase& args, LayerManager& manager);

    template <class Move>
    MStatus executeMove(std::unique_ptr<Move> edit);
    template <class Value, class Argument>
    MStatus editProperty(const LayerProperty<Value, Argument>& property, int index, int shownIndex, const Value& value);
    template <class Value, class Argument>
    MStatus queryProperty(const LayerProperty<Value, Argument>& property, int index, const LayerManager& manager);

    QString m_camera;
};
