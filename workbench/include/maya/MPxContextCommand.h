#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MArgParser.h>
#include <maya/MPxContext.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <memory>

namespace api {
struct Access;
struct ContextCommandState;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The command that makes a module's tools: `cmd` or `cmd name` makes one and gives its name; `cmd -e` and `cmd -q`
/// with the flags of appendSyntax act on the named one.
class MPxContextCommand {
public:
    MPxContextCommand();
    virtual ~MPxContextCommand();

    /// The host owns the tool.
    virtual MPxContext* makeObj();
    /// Adds the command's own flags to syntax().
    virtual MStatus appendSyntax();
    virtual MStatus doEditFlags();
    virtual MStatus doQueryFlags();

    MStatus setResult(bool result);
    MStatus setResult(int result);
    MStatus setResult(double result);
    MStatus setResult(const MString& result);

protected:
    /// The command's own: flags added to it count.
    MSyntax syntax(MStatus* ReturnStatus = NULL) const;
    MArgParser parser(MStatus* ReturnStatus = NULL) const;

private:
    MPxContextCommand(const MPxContextCommand&) = delete;
    MPxContextCommand& operator=(const MPxContextCommand&) = delete;

    friend struct api::Access;
    std::unique_ptr<api::ContextCommandState> m_state;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
