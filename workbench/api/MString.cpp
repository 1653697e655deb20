#include <maya/MString.h>

#include "kernel/Value.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <charconv>
#include <cwchar>
#include <ostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

constexpr char32_t kReplacement = 0xfffd;

void appendUtf8(std::string& out, char32_t c)
{
    if (c > 0x10ffff || (c >= 0xd800 && c < 0xe000))
        c = kReplacement;
    if (c < 0x80) {
        out += char(c);
        return;
    }
    if (c < 0x800) {
        out += char(0xc0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            out += char(0xe0 | (c >> 12));
        } else {
            out += char(0xf0 | (c >> 18));
            out += char(0x80 | ((c >> 12) & 0x3f));
        }
        out += char(0x80 | ((c >> 6) & 0x3f));
    }
    out += char(0x80 | (c & 0x3f));
}

std::string toUtf8(const wchar_t* text, std::size_t length)
{
    std::string out;
    for (std::size_t i = 0; i < length; ++i)
        appendUtf8(out, char32_t(text[i]));
    return out;
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

/// Reads one character at `i` and steps over it; a byte that belongs to none stands for the replacement character.
char32_t nextCharacter(const std::string& text, std::size_t& i)
{
    const auto lead = static_cast<unsigned char>(text[i++]);
    if (lead < 0x80)
        return lead;
    const int following = lead >= 0xf8 ? -1 : lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : lead >= 0xc0 ? 1 : -1;
    if (following < 0)
        return kReplacement;
    char32_t c = lead & (0x3f >> following);
    for (int n = 0; n < following; ++n) {
        if (i >= text.size() || !isContinuation(text[i]))
            return kReplacement;
        c = (c << 6) | (text[i++] & 0x3f);
    }
    return c;
}

std::wstring toWide(const std::string& text)
{
    std::wstring out;
    for (std::size_t i = 0; i < text.size();)
        out += wchar_t(nextCharacter(text, i));
    return out;
}

std::string floatText(float value)
{
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return {buffer, end};
}

/// The number a text starts with, after blanks and one plus sign; `rest` is the index of what follows it, 0 without
/// a number.
template <typename Number>
Number leadingNumber(const std::string& text, std::size_t& rest)
{
    rest = 0;
    const auto start = text.find_first_not_of(" \t\r\n");
    if (start == std::string::npos)
        return Number();
    const char* first = text.data() + start;
    const char* last = text.data() + text.size();
    if (*first == '+' && last - first > 1 && first[1] != '-')
        ++first;
    Number number = Number();
    const auto read = std::from_chars(first, last, number);
    if (read.ec != std::errc())
        return Number();
    rest = std::size_t(read.ptr - text.data());
    return number;
}

template <typename Number>
bool isWholeNumber(const std::string& text)
{
    std::size_t rest = 0;
    leadingNumber<Number>(text, rest);
    return rest != 0 && text.find_first_not_of(" \t\r\n", rest) == std::string::npos;
}

template <typename Number>
Number leadingNumber(const std::string& text)
{
    std::size_t rest = 0;
    return leadingNumber<Number>(text, rest);
}

std::string formatted(const std::string& format, const MString* arguments, std::size_t count)
{
    std::string out;
    for (std::size_t i = 0; i < format.size();) {
        if (format[i] != '^') {
            out += format[i++];
            continue;
        }
        if (format.compare(i, 2, "^^") == 0) {
            out += '^';
            i += 2;
            continue;
        }
        const auto end = format.find('s', i);
        int number = 0;
        if (end != std::string::npos && kernel::parseInt(format.substr(i + 1, end - i - 1), number) && number > 0) {
            if (std::size_t(number) <= count)
                out += arguments[number - 1].asUTF8();
            i = end + 1;
            continue;
        }
        out += format[i++];
    }
    return out;
}

}  // namespace

MString::MString() = default;
MString::MString(const char* text) : m_text(text ? text : "") {}
MString::MString(const wchar_t* text) : m_text(text ? toUtf8(text, std::wcslen(text)) : std::string()) {}
MString::MString(const char* text, int length)
    : m_text(text && length > 0 ? std::string(text, std::size_t(length)) : std::string())
{}
MString::MString(const wchar_t* text, int length)
    : m_text(text && length > 0 ? toUtf8(text, std::size_t(length)) : std::string())
{}
MString::MString(const MString& other) : m_text(other.m_text) {}
MString::~MString() = default;

MString& MString::operator=(const MString& other)
{
    m_text = other.m_text;
    return *this;
}

MString& MString::operator=(const char* text)
{
    set(text);
    return *this;
}

MString& MString::operator=(double value)
{
    set(value);
    return *this;
}

MString& MString::operator+=(const MString& other)
{
    m_text += other.m_text;
    return *this;
}

MString& MString::operator+=(const char* text)
{
    if (text)
        m_text += text;
    return *this;
}

MString& MString::operator+=(double value)
{
    m_text += kernel::exactNumberText(value);
    return *this;
}

MString& MString::operator+=(int value)
{
    m_text += std::to_string(value);
    return *this;
}

MString& MString::operator+=(unsigned int value)
{
    m_text += std::to_string(value);
    return *this;
}

MString& MString::operator+=(float value)
{
    m_text += floatText(value);
    return *this;
}

MString MString::operator+(const MString& other) const
{
    return MString(*this) += other;
}

MString MString::operator+(const char* text) const
{
    return MString(*this) += text;
}

MString MString::operator+(double value) const
{
    return MString(*this) += value;
}

MString operator+(const char* text, const MString& string)
{
    return MString(text) += string;
}

bool MString::operator==(const MString& other) const
{
    return m_text == other.m_text;
}

bool MString::operator==(const char* text) const
{
    return m_text == (text ? text : "");
}

bool MString::operator!=(const MString& other) const
{
    return !(*this == other);
}

bool MString::operator!=(const char* text) const
{
    return !(*this == text);
}

const char* MString::asChar() const
{
    return m_text.c_str();
}

const char* MString::asChar(int& length) const
{
    return asUTF8(length);
}

const char* MString::asUTF8() const
{
    return m_text.c_str();
}

const char* MString::asUTF8(int& length) const
{
    length = int(m_text.size());
    return m_text.c_str();
}

const wchar_t* MString::asWChar() const
{
    m_wide = toWide(m_text);
    return m_wide.c_str();
}

const wchar_t* MString::asWChar(int& length) const
{
    const wchar_t* wide = asWChar();
    length = int(m_wide.size());
    return wide;
}

unsigned int MString::length() const
{
    return static_cast<unsigned int>(m_text.size());
}

unsigned int MString::numChars() const
{
    return static_cast<unsigned int>(toWide(m_text).size());
}

bool MString::isEmpty() const
{
    return m_text.empty();
}

MStatus MString::clear()
{
    m_text.clear();
    return MStatus::kSuccess;
}

bool MString::isInt() const
{
    return isWholeNumber<int>(m_text);
}

bool MString::isUnsigned() const
{
    return isWholeNumber<unsigned int>(m_text);
}

bool MString::isFloat() const
{
    return isWholeNumber<float>(m_text);
}

bool MString::isDouble() const
{
    return isWholeNumber<double>(m_text);
}

bool MString::isShort() const
{
    return isWholeNumber<short>(m_text);
}

int MString::asInt() const
{
    return leadingNumber<int>(m_text);
}

unsigned int MString::asUnsigned() const
{
    return leadingNumber<unsigned int>(m_text);
}

double MString::asDouble() const
{
    return leadingNumber<double>(m_text);
}

float MString::asFloat() const
{
    return leadingNumber<float>(m_text);
}

short MString::asShort() const
{
    return leadingNumber<short>(m_text);
}

MStatus MString::set(const char* text)
{
    m_text = text ? text : "";
    return MStatus::kSuccess;
}

MStatus MString::set(const char* text, int length)
{
    return *this = MString(text, length), MStatus::kSuccess;
}

MStatus MString::set(const wchar_t* text)
{
    return *this = MString(text), MStatus::kSuccess;
}

MStatus MString::set(double value)
{
    m_text = kernel::exactNumberText(value);
    return MStatus::kSuccess;
}

MStatus MString::set(int value)
{
    m_text = std::to_string(value);
    return MStatus::kSuccess;
}

MStatus MString::set(unsigned int value)
{
    m_text = std::to_string(value);
    return MStatus::kSuccess;
}

MStatus MString::setUTF8(const char* text)
{
    return set(text);
}

int MString::index(char character) const
{
    const auto at = m_text.find(character);
    return at == std::string::npos ? -1 : int(at);
}

int MString::rindex(char character) const
{
    const auto at = m_text.rfind(character);
    return at == std::string::npos ? -1 : int(at);
}

MString MString::substring(int start, int end) const
{
    start = std::max(start, 0);
    end = std::min(end, int(m_text.size()) - 1);
    return start <= end ? MString(m_text.data() + start, end - start + 1) : MString();
}

MStatus MString::split(char separator, MStringArray& pieces) const
{
    pieces.clear();
    for (std::size_t start = 0; start < m_text.size();) {
        const auto end = std::min(m_text.find(separator, start), m_text.size());
        if (end > start)
            pieces.append(MString(m_text.data() + start, int(end - start)));
        start = end + 1;
    }
    return MStatus::kSuccess;
}

// Letters of other alphabets have their cases too, but those depend on the locale; scripts and names are ASCII.
MString& MString::toUpperCase()
{
    for (char& c : m_text)
        c = c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
    return *this;
}

MString& MString::toLowerCase()
{
    for (char& c : m_text)
        c = c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
    return *this;
}

MString MString::toUpperCase() const
{
    MString copy(*this);
    return copy.toUpperCase();
}

MString MString::toLowerCase() const
{
    MString copy(*this);
    return copy.toLowerCase();
}

MStatus MString::format(const MString& format, const MString& a1, const MString& a2, const MString& a3,
                        const MString& a4, const MString& a5, const MString& a6, const MString& a7, const MString& a8,
                        const MString& a9, const MString& a10)
{
    const MString arguments[] = {a1, a2, a3, a4, a5, a6, a7, a8, a9, a10};
    m_text = formatted(format.m_text, arguments, 10);
    return MStatus::kSuccess;
}

MStatus MString::format(const MString& format, const MStringArray& arguments)
{
    const std::vector<MString> copies(arguments.begin(), arguments.end());
    m_text = formatted(format.m_text, copies.data(), copies.size());
    return MStatus::kSuccess;
}

std::ostream& operator<<(std::ostream& out, const MString& string)
{
    return out << string.asUTF8();
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
