#pragma once

#include "commands/ActiveLayers.h"
#include "commands/FrameEdit.h"
#include "commands/FrameLists.h"

/// Puts blank frames wherever a span has none, on a new layer if the camera has no layer.
class InsertFrames : public FrameEdit {
public:
    InsertFrames(const QString& camera, const FrameSpan& span);

protected:
    bool prepare(LayerManager& manager) override;
    bool apply(LayerManager& manager) override;
    bool reapply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    bool putLayer(LayerManager& manager);

    const FrameSpan m_span;
    KeptFrames m_inserted;
    bool m_makesLayer = false;
    ActiveLayers m_before;           // a first layer makes itself active
    std::unique_ptr<Layer> m_layer;  // the one that was made, ours only while the edit is undone
};

/// Copies the drawing before the current time to that time.
class DuplicateFrame : public FrameEdit {
public:
    explicit DuplicateFrame(const QString& camera);

protected:
    bool prepare(LayerManager& manager) override;
    bool prepareFor(const Layer& layer) override;
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    int m_source = 0;
    KeptFrames m_copy;
};

/// Takes the frames of a span away; undo puts the very same ones back.
class DeleteFrames : public FrameEdit {
public:
    DeleteFrames(const QString& camera, const FrameSpan& span);

protected:
    DeleteFrames(const QString& camera, const FrameSpan& span, const char* whenLocked);

    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

    const FrameSpan& span() const { return m_span; }
    const Frames& taken() const { return m_taken.frames(); }

private:
    const FrameSpan m_span;
    KeptFrames m_taken;
};

/// Takes the frames of a span away and into the clipboard.
class CutFrames : public DeleteFrames {
public:
    CutFrames(const QString& camera, const FrameSpan& span);

protected:
    bool applyTo(Layer& layer) override;
    void applied(BaseNode& node) override;

private:
    const std::shared_ptr<Frames> m_copies = std::make_shared<Frames>();  // the clipboard's, again after each redo
};

/// Makes the frames of a span blank.
class ClearFrames : public DeleteFrames {
public:
    ClearFrames(const QString& camera, const FrameSpan& span);

protected:
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    KeptFrames m_blank;
};

/// Puts copies of the clipboard's frames in; what was there gives way until the edit is undone.
class PasteFrames : public FrameEdit {
public:
    /// start: the frame number at which the span that was copied begins now.
    PasteFrames(const QString& camera, const Frames& clipboard, int start);

protected:
    bool prepare(LayerManager& manager) override;
    bool applyTo(Layer& layer) override;
    bool reapplyTo(Layer& layer) override;
    bool revertOn(Layer& layer) override;

private:
    Frames m_copies;         // on their way into the layer
    const bool m_isInRange;  // all of them
    KeptFrames m_pasted;
    KeptFrames m_replaced;
};
