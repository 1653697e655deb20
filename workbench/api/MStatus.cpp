#include <maya/MStatus.h>

#include <maya/MString.h>

#include <iostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

/// In the order of the codes.
const char* const kErrorTexts[] = {
    "(kSuccess): The operation succeeded",
    "(kFailure): The operation failed",
    "(kInsufficientMemory): There is not enough memory",
    "(kInvalidParameter): An argument has no meaning here",
    "(kLicenseFailure): There is no licence for this",
    "(kUnknownParameter): An argument is not known",
    "(kNotImplemented): The host does not offer this",
    "(kNotFound): The item was not found",
    "(kEndOfFile): The file ends too early",
};

}  // namespace

MString MStatus::errorString() const
{
    return MString(kErrorTexts[m_code]);
}

void MStatus::perror(const char* context) const
{
    std::cerr << context << ": " << kErrorTexts[m_code] << std::endl;
}

void MStatus::perror(const MString& context) const
{
    perror(context.asUTF8());
}

std::ostream& operator<<(std::ostream& out, MStatus& status)
{
    return out << status.errorString();
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
