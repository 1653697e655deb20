#pragma once

#include <maya/MStatus.h>

#include <iosfwd>
#include <string>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A text. Bytes are UTF-8 whatever the process locale: the locale forms and the UTF-8 forms agree here.
class MString {
public:
    MString();
    MString(const char* text);
    MString(const wchar_t* text);
    MString(const char* text, int length);     ///< length in bytes
    MString(const wchar_t* text, int length);  ///< length in characters
    MString(const MString& other);
    ~MString();

    MString& operator=(const MString& other);
    MString& operator=(const char* text);
    MString& operator=(double value);

    MString& operator+=(const MString& other);
    MString& operator+=(const char* text);
    MString& operator+=(double value);
    MString& operator+=(int value);
    MString& operator+=(unsigned int value);
    MString& operator+=(float value);
    MString operator+(const MString& other) const;
    MString operator+(const char* text) const;
    MString operator+(double value) const;
    friend MString operator+(const char* text, const MString& string);

    bool operator==(const MString& other) const;
    bool operator==(const char* text) const;
    bool operator!=(const MString& other) const;
    bool operator!=(const char* text) const;

    /// The pointers stay valid until the string changes or goes.
    const char* asChar() const;
    const char* asChar(int& length) const;
    const char* asUTF8() const;
    const char* asUTF8(int& length) const;
    const wchar_t* asWChar() const;
    const wchar_t* asWChar(int& length) const;
    unsigned int length() const;    ///< bytes
    unsigned int numChars() const;  ///< characters
    bool isEmpty() const;
    MStatus clear();

    /// Whether the whole text is such a number; the conversions read a leading number and give 0 without one.
    bool isInt() const;
    bool isUnsigned() const;
    bool isFloat() const;
    bool isDouble() const;
    bool isShort() const;
    int asInt() const;
    unsigned int asUnsigned() const;
    double asDouble() const;
    float asFloat() const;
    short asShort() const;

    MStatus set(const char* text);
    MStatus set(const char* text, int length);
    MStatus set(const wchar_t* text);
    MStatus set(double value);
    MStatus set(int value);
    MStatus set(unsigned int value);
    MStatus setUTF8(const char* text);

    int index(char character) const;   ///< -1 when absent
    int rindex(char character) const;  ///< -1 when absent
    /// Bytes start to end, both included; empty when the range is.
    MString substring(int start, int end) const;
    /// The non-empty pieces between separators.
    MStatus split(char separator, MStringArray& pieces) const;
    MString& toUpperCase();
    MString& toLowerCase();
    MString toUpperCase() const;
    MString toLowerCase() const;

    /// Replaces "^1s" to "^10s" of a format by the arguments; "^^" is one "^".
    MStatus format(const MString& format, const MString& a1 = MString(), const MString& a2 = MString(),
                   const MString& a3 = MString(), const MString& a4 = MString(), const MString& a5 = MString(),
                   const MString& a6 = MString(), const MString& a7 = MString(), const MString& a8 = MString(),
                   const MString& a9 = MString(), const MString& a10 = MString());
    MStatus format(const MString& format, const MStringArray& arguments);

private:
    std::string m_text;
    mutable std::wstring m_wide;
};

MString operator+(const char* text, const MString& string);
std::ostream& operator<<(std::ostream& out, const MString& string);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
