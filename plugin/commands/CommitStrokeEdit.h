#pragma once

#include "commands/Edit.h"
#include "model/LayerManager.h"

#include <QString>

/// What the tool says it made so that there was a frame to draw on.
struct StrokeTarget {
    QString camera;
    int layerAdded;  ///< index of the layer, -1 for none
    bool frameAdded;
};

/// Merges the pending stroke into its frame. Undo and redo exchange the frame's picture with the other one, and take
/// away or give back what the tool made for the stroke. The first run fails, and the stroke goes on, when what is said
/// to be made was not made for it.
class CommitStrokeEdit : public DrawingEdit {
public:
    explicit CommitStrokeEdit(const StrokeTarget& target);

protected:
    MStatus executeOn(BaseNode& node) override;
    MStatus redoOn(BaseNode& node) override;
    MStatus undoOn(BaseNode& node) override;

private:
    bool isOwnTarget(const LayerManager& manager) const;
    void rememberPreviousCamera(const LayerManager& manager);
    bool restoreTarget(LayerManager& manager);
    void takeTarget(LayerManager& manager);
    Layer* targetLayer(const LayerManager& manager) const;
    void conclude(LayerManager& manager) const;

    const StrokeTarget m_target;
    Picture m_picture;               // the frame's other one
    FrameAddress m_frame;            // where the stroke went
    std::unique_ptr<Layer> m_layer;  // that the tool added, with the frame: ours only while the stroke is undone
    QString m_previousCamera;  // its active layer comes back when the undo takes away another camera's first layer
    int m_previousActiveIndex = -1;
};
