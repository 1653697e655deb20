#pragma once

#include <maya/MAnimControl.h>
#include <maya/MArgDatabase.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>

/// What a command has the host do besides reading its text.
enum HostCall : unsigned {
    kLooksUpCamera = 1,
    kAsksForSpan = 2,
    kNudgesSelection = 4,  ///< whenever it runs
    kSetsTime = 8,         ///< likewise
    kMakesNode = 16,
    kIsNoStep = 32,  ///< it cannot be undone
};

/// A command that makes the host calls of one of ours and nothing else. It stands for what the host takes.
class BareCommand : public MPxCommand {
public:
    static void* creator() { return new BareCommand; }

    static unsigned calls;  ///< of the commands that are run from now on
    static MObject node;    ///< what they nudge the selection with

    MStatus doIt(const MArgList& list) override
    {
        const MArgDatabase args(syntax(), list);
        MDoubleArray span;
        if (m_calls & kLooksUpCamera) {
            MSelectionList found;
            MDagPath path;
            found.add("persp");
            found.getDagPath(0, path);
            path.partialPathName();
        }
        if (m_calls & kAsksForSpan) {
            MGlobal::executeCommand("timeControl -q -rangeArray $gPlayBackSlider", span);
        }
        if (m_calls & kMakesNode) {
            const MObject transform = m_modifier.createNode("transform");
            m_modifier.renameNode(transform, "bare");
            m_modifier.renameNode(m_modifier.createNode("locator", transform), "bareShape");
        }
        return redoIt();
    }
    MStatus redoIt() override
    {
        if (m_calls & kMakesNode) {
            m_modifier.doIt();
        }
        return run(m_from + MTime(1.0, MTime::uiUnit()));
    }
    MStatus undoIt() override
    {
        if (m_calls & kMakesNode) {
            m_modifier.undoIt();
        }
        return run(m_from);
    }
    bool isUndoable() const override { return !(m_calls & kIsNoStep); }

private:
    MStatus run(const MTime& time) const
    {
        if (m_calls & kSetsTime) {
            MAnimControl::setCurrentTime(time);
        }
        if (m_calls & kNudgesSelection) {
            nudgeSelection();
        }
        return MStatus::kSuccess;
    }

    static void nudgeSelection()
    {
        MSelectionList selection;
        MGlobal::getActiveSelectionList(selection);
        if (selection.isEmpty()) {
            MSelectionList other;
            other.add(node);
            MGlobal::setActiveSelectionList(other);
        } else {
            MGlobal::clearSelectionList();
        }
        MGlobal::setActiveSelectionList(selection);
    }

    const unsigned m_calls = calls;
    const MTime m_from = MAnimControl::currentTime();
    MDagModifier m_modifier;
};

inline unsigned BareCommand::calls = 0;
inline MObject BareCommand::node;
