#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

#include <memory>

namespace api {
struct Access;
}
namespace kernel {
class Syntax;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The grammar of a command: flags with typed values, then arguments or objects. Copies are independent; what a
/// context command's syntax() gives, and what is moved from it, is that command's own.
class MSyntax {
public:
    enum MArgType {
        kInvalidArgType = 0,
        kNoArg = 1,
        kBoolean = 2,
        kLong = 3,
        kDouble = 4,
        kString = 5,
        kUnsigned = 6,
        kDistance = 7,
        kAngle = 8,
        kTime = 9,
        kSelectionItem = 10,
        kLastArgType = 11
    };
    enum MObjectFormat {
        kInvalidObjectFormat = 0,
        kNone = 1,
        kStringObjects = 2,
        kSelectionList = 3,
        kLastObjectFormat = 4
    };

    MSyntax();
    MSyntax(const MSyntax& other);
    MSyntax(MSyntax&& other);
    MSyntax& operator=(const MSyntax& other);
    MSyntax& operator=(MSyntax&& other);
    ~MSyntax();

    /// Short names have one to three letters, long ones four or more, a leading dash not counted (it is optional here
    /// and in every look-up; callers of the command always type it). Fails, and adds nothing, when a name is of the
    /// wrong length, taken or reserved (e, edit, q, query).
    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg, MArgType argType2 = kNoArg,
                    MArgType argType3 = kNoArg, MArgType argType4 = kNoArg, MArgType argType5 = kNoArg,
                    MArgType argType6 = kNoArg);
    MStatus addArg(MArgType argType);
    MStatus makeFlagMultiUse(const char* flag);
    /// The flag takes its values after -query too; they are required there, optional or not.
    MStatus makeFlagQueryWithFullArgs(const char* flag, bool queryArgsAreOptional);

    void setObjectType(MObjectFormat format, unsigned int minimumObjects = 0);
    void setObjectType(MObjectFormat format, unsigned int minimumObjects, unsigned int maximumObjects);
    void setMinObjects(unsigned int minimum);
    void setMaxObjects(unsigned int maximum);
    unsigned int minObjects() const;
    unsigned int maxObjects() const;
    void useSelectionAsDefault(bool use = false);

    void enableQuery(bool enable = true);
    void enableEdit(bool enable = true);
    bool canQuery() const;
    bool canEdit() const;

private:
    friend struct api::Access;
    std::shared_ptr<kernel::Syntax> m_syntax;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
