#pragma once

#include "commands/Edit.h"
#include "model/LayerManager.h"

#include <maya/MTime.h>

#include <QString>

/// What the tool made so that there was a frame to draw on.
struct StrokeTarget {
    QString camera;
    int layerAdded;  ///< index of the layer, -1 for none
    bool frameAdded;
};

/// Merges the pending stroke into its frame. Undo and redo exchange the frame's picture with the other one, and take
/// away or make again what the tool made for the stroke.
class CommitStrokeEdit : public DrawingEdit {
public:
    explicit CommitStrokeEdit(const StrokeTarget& target);

protected:
    MStatus executeOn(BaseNode& node) override;
    MStatus redoOn(BaseNode& node) override;
    MStatus undoOn(BaseNode& node) override;

private:
    void rememberPreviousCamera(const LayerManager& manager);
    bool makeTarget(LayerManager& manager) const;
    void removeTarget(LayerManager& manager) const;
    void removeFrame(LayerManager& manager) const;
    void removeLayer(LayerManager& manager) const;
    void conclude(LayerManager& manager) const;

    const StrokeTarget m_target;
    Picture m_picture;         // the frame's other one
    FrameAddress m_frame;      // where the stroke went, wherever the scene's time and views have moved since
    MTime m_frameTime;         // of the frame the tool added
    int m_layerState = 0;      // of the layer the tool added: the preference may say another by the time of a redo
    QString m_previousCamera;  // its active layer comes back when the undo takes away another camera's first layer
    int m_previousActiveIndex = -1;
};
