#pragma once

#include <maya/MArgParser.h>
#include <maya/MSelectionList.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An argument parser that also resolves names to things of the scene.
class MArgDatabase : public MArgParser {
public:
    MArgDatabase();
    MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus = NULL);
    ~MArgDatabase() override;

    using MArgParser::getFlagArgument;
    using MArgParser::getObjects;
    MStatus getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const;
    /// Needs a syntax with a selection list as objects; fails at the first name that nothing in the scene has.
    MStatus getObjects(MSelectionList& result) const;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
