#pragma once

#include "commands/Edit.h"

#include <maya/MDagModifier.h>
#include <maya/MSelectionList.h>

#include <QString>

class BaseNode;
class LayerManager;

/// What a new drawing node starts with.
struct FirstLayerRequest {
    bool wanted;
    QString camera;  ///< empty: the active view's
    QString name;
    int state;        ///< -1 for the default
    bool withFrames;  ///< key the highlighted range of the time slider
};

/// Makes the scene's drawing node, with a first layer when one is wanted. Undo takes node, layer and frames away
/// together; redo brings back an empty drawing.
class CreateNodeEdit : public Edit {
public:
    explicit CreateNodeEdit(const FirstLayerRequest& layer);
    MStatus execute() override;
    MStatus redo() override;
    MStatus undo() override;

private:
    bool recordCreation();
    BaseNode* placeInScene();
    void addFirstLayer(LayerManager& manager) const;
    void announce(const BaseNode& node) const;

    const FirstLayerRequest m_layer;
    MDagModifier m_modifier;
    MSelectionList m_previousSelection;
};
