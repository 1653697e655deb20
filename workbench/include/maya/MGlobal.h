#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MCommandResult.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Scripts, messages, selection and the state of the host.
class MGlobal {
public:
    enum MMayaState { kInteractive = 0, kBatch = 1, kLibraryApp = 2, kBaseUIMode = 3 };
    enum ListAdjustment {
        kReplaceList = 0,
        kXORWithList = 1,
        kAddToList = 2,
        kRemoveFromList = 3,
        kAddToHeadOfList = 4
    };

    // The text runs at the global scope. displayEnabled echoes it and its result; without undoEnabled nothing it does
    // is recorded, with it the text is one undo step or joins the open one. The forms with a result fail when the
    // text's value is of another type, although it ran.
    static MStatus executeCommand(const MString& command, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MCommandResult& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, MStatus* ReturnStatus = NULL);
    /// Runs the text as an undo step of its own when the host is next idle; from any thread.
    static MStatus executeCommandOnIdle(const MString& command, bool displayEnabled = false);
    static MStatus sourceFile(const MString& fileName);

    static void displayInfo(const MString& text);
    static void displayWarning(const MString& text);
    static void displayError(const MString& text);

    // Not undoable, except selectCommand.
    static MStatus getActiveSelectionList(MSelectionList& dest, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(const MSelectionList& src, ListAdjustment adjustment = kReplaceList);
    static MStatus clearSelectionList();
    static MStatus select(MObject& object, ListAdjustment adjustment = kAddToList);
    static MStatus unselect(MObject& object);
    static MStatus selectByName(const MString& name, ListAdjustment adjustment = kAddToList);
    static MStatus selectCommand(const MSelectionList& src, ListAdjustment adjustment = kReplaceList);
    static MStatus getSelectionListByName(const MString& name, MSelectionList& list);

    static MMayaState mayaState(MStatus* ReturnStatus = NULL);
    static int apiVersion();
    static MString mayaVersion();
    static bool isUndoing();
    static bool isRedoing();

    // exists, when given, tells whether there is such a variable. Text that is no number reads as 0.
    static int optionVarIntValue(const MString& name, bool* exists = NULL);
    static double optionVarDoubleValue(const MString& name, bool* exists = NULL);
    static MString optionVarStringValue(const MString& name, bool* exists = NULL);
    static bool optionVarExists(const MString& name);
    static bool setOptionVarValue(const MString& name, int value);
    static bool setOptionVarValue(const MString& name, double value);
    static bool setOptionVarValue(const MString& name, MString value);

    static MStatus viewFrame(const MTime& time);
    static MStatus viewFrame(double time);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
