#pragma once

#include <maya/MAngle.h>
#include <maya/MApiNamespace.h>
#include <maya/MArgList.h>
#include <maya/MDistance.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>
#include <maya/MTime.h>

#include <memory>

namespace api {
struct Access;
struct ParsedArguments;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Arguments sorted by a syntax. The constructor parses; after a failing status every query fails. Flags are named by
/// their short or long name, with or without the dash.
class MArgParser {
public:
    MArgParser();
    MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    MArgParser(const MArgParser& other);
    MArgParser& operator=(const MArgParser& other);
    virtual ~MArgParser();

    bool isFlagSet(const char* flag, MStatus* ReturnStatus = NULL) const;
    bool isEdit(MStatus* ReturnStatus = NULL) const;
    bool isQuery(MStatus* ReturnStatus = NULL) const;
    /// Different flags used, -edit and -query not counted.
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    // A flag that is not set, an index it has no value for, or a value of another kind: fails, result untouched.
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MDistance& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MAngle& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MTime& result) const;
    bool flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    int flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    double flagArgumentDouble(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString flagArgumentString(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MDistance flagArgumentMDistance(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MAngle flagArgumentMAngle(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    MTime flagArgumentMTime(const char* flag, unsigned int index, MStatus* ReturnStatus = NULL) const;
    /// The values of one use (from 0) of a flag that may be used several times.
    MStatus getFlagArgumentList(const char* flag, unsigned int use, MArgList& args) const;

    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    MStatus getCommandArgument(unsigned int index, MTime& result) const;
    bool commandArgumentBool(unsigned int index, MStatus* ReturnStatus = NULL) const;
    int commandArgumentInt(unsigned int index, MStatus* ReturnStatus = NULL) const;
    double commandArgumentDouble(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MString commandArgumentString(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MTime commandArgumentMTime(unsigned int index, MStatus* ReturnStatus = NULL) const;

    /// What the caller typed; needs a syntax with string objects.
    MStatus getObjects(MStringArray& result) const;

protected:
    friend struct api::Access;
    std::shared_ptr<const api::ParsedArguments> m_parsed;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
