#pragma once

#include <maya/MPxContext.h>

/// The transform tool: a region of the drawing is selected, moved, turned, scaled and flipped, and put back as one undo
/// step.
class TransformContext : public MPxContext {
public:
    TransformContext();

    void toolOnSetup(MEvent& event) override;
    void getClassName(MString& name) const override;
    MStatus helpStateHasChanged(MEvent& event) override;

private:
    enum class State { Selecting, Transforming };

    MStatus showHelp();

    State m_state = State::Selecting;
};
