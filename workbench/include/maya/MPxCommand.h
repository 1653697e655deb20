#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <memory>

namespace api {
struct Access;
struct CommandState;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A module's command: one object per invocation. doIt runs it; when that succeeds and isUndoable() is true after it,
/// the undo queue keeps the object, otherwise it is deleted at once.
class MPxCommand {
public:
    enum MResultType { kLong = 0, kDouble = 1, kString = 2, kNoArg = 3 };

    MPxCommand();
    virtual ~MPxCommand();

    virtual MStatus doIt(const MArgList& args);
    virtual MStatus undoIt();
    virtual MStatus redoIt();
    virtual bool isUndoable() const;
    /// Whether invocations are checked against the registered syntax before doIt; true when there is one.
    virtual bool hasSyntax() const;
    MSyntax syntax() const;

    MString commandString() const;
    MStatus setCommandString(const MString& text);
    bool isHistoryOn() const;
    MStatus setHistoryOn(bool state);

    // The result belongs to the command that executes now; a nested execution has its own.
    static void setResult(int result);
    static void setResult(unsigned int result);
    static void setResult(double result);
    static void setResult(float result);
    static void setResult(bool result);
    static void setResult(const char* result);
    static void setResult(const MString& result);
    static void setResult(const MIntArray& result);
    static void setResult(const MDoubleArray& result);
    static void setResult(const MStringArray& result);
    /// Makes the result an array, or makes it longer. Fails silently when the element is of another kind.
    static void appendToResult(int element);
    static void appendToResult(double element);
    static void appendToResult(bool element);
    static void appendToResult(const char* element);
    static void appendToResult(const MString& element);
    static void appendToResult(const MStringArray& elements);
    static void clearResult();

    static MStatus getCurrentResult(int& result);
    static MStatus getCurrentResult(double& result);
    static MStatus getCurrentResult(MString& result);
    static MStatus getCurrentResult(MIntArray& result);
    static MStatus getCurrentResult(MDoubleArray& result);
    static MStatus getCurrentResult(MStringArray& result);
    static int currentIntResult(MStatus* ReturnStatus = NULL);
    static double currentDoubleResult(MStatus* ReturnStatus = NULL);
    static MString currentStringResult(MStatus* ReturnStatus = NULL);
    static bool isCurrentResultArray();
    static MResultType currentResultType();

    static void displayInfo(const MString& text);
    static void displayWarning(const MString& text, bool showLineNumber = false);
    static void displayError(const MString& text, bool showLineNumber = false);

private:
    MPxCommand(const MPxCommand&) = delete;
    MPxCommand& operator=(const MPxCommand&) = delete;

    friend struct api::Access;
    std::unique_ptr<api::CommandState> m_state;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
