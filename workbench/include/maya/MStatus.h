#pragma once

#include <maya/MTypes.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Outcome of an API call. True when it succeeded.
class MStatus {
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus() = default;
    MStatus(MStatusCode code) : m_code(code) {}

    bool operator==(const MStatus& other) const { return m_code == other.m_code; }
    bool operator==(const MStatusCode code) const { return m_code == code; }
    bool operator!=(const MStatus& other) const { return m_code != other.m_code; }
    bool operator!=(const MStatusCode code) const { return m_code != code; }
    friend bool operator==(const MStatusCode code, const MStatus& status) { return status == code; }
    friend bool operator!=(const MStatusCode code, const MStatus& status) { return status != code; }
    operator bool() const { return m_code == kSuccess; }
    bool operator!() const { return m_code != kSuccess; }

    bool error() const { return m_code != kSuccess; }
    void clear() { m_code = kSuccess; }
    MStatusCode statusCode() const { return m_code; }
    /// "(kFailure): ..." with a sentence on the kind of failure.
    MString errorString() const;
    /// Prints the context and the error text to the error stream.
    void perror(const char* context) const;
    void perror(const MString& context) const;

    friend std::ostream& operator<<(std::ostream& out, MStatus& status);

private:
    MStatusCode m_code = kSuccess;
};

std::ostream& operator<<(std::ostream& out, MStatus& status);

typedef MStatus MS;

OPENMAYA_MAJOR_NAMESPACE_CLOSE

// Report a failure on the error stream and go on, or leave the function.
#define CHECK_MSTATUS(_status)                                                                                         \
    do {                                                                                                               \
        const MStatus maya_status(_status);                                                                            \
        if (!maya_status)                                                                                              \
            maya_status.perror("API error detected in " __FILE__);                                                     \
    } while (false)

#define CHECK_MSTATUS_AND_RETURN(_status, _value)                                                                      \
    do {                                                                                                               \
        const MStatus maya_status(_status);                                                                            \
        if (!maya_status) {                                                                                            \
            maya_status.perror("API error detected in " __FILE__);                                                     \
            return (_value);                                                                                           \
        }                                                                                                              \
    } while (false)

#define CHECK_MSTATUS_AND_RETURN_IT(_status) CHECK_MSTATUS_AND_RETURN((_status), maya_status)
