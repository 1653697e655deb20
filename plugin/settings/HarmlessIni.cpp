#include "settings/HarmlessIni.h"

#include <QStringList>

#include <cstring>

namespace {

constexpr int kEnd = -1;
constexpr char kObjects[] = "@Variant(";
constexpr char kDates[] = "@DateTime(";
constexpr int kColourType[] = {0, 0, 0, 0x43};

// What neither a text nor a geometry holds. A value that begins with it is a text.
constexpr char kMark[] = "\x1\x2\x3\x1\x2\x3";
constexpr char kMarkAsEscapes[] = "\\x1\\x2\\x3\\x1\\x2\\x3";

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// Reads a value character by character as Qt's ini form means them: without quotes, with escapes replaced.
class ValueText {
public:
    ValueText(const QByteArray& text, int at) : m_text(text), m_at(at) {}

    /// The next character's code, at most 16 bits; kEnd at the end of the file.
    int next()
    {
        while (m_at < m_text.size()) {
            const char c = m_text[m_at++];
            if (c == '"') {
                skipBlanks();
            } else if (c != '\\') {
                return static_cast<uchar>(c);
            } else {
                const int code = escaped();
                if (code != kEnd) {
                    return code;
                }
            }
        }
        return kEnd;
    }

    bool take(const char* expected)
    {
        for (; *expected; ++expected) {
            if (next() != *expected) {
                return false;
            }
        }
        return true;
    }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(m_text[m_at])) {
            ++m_at;
        }
    }

    // What stands behind a back-slash: a number, a letter for a control character, or nothing (kEnd).
    int escaped()
    {
        const char c = m_at < m_text.size() ? m_text[m_at++] : '\0';
        if (c == 'x') {
            return number(16, 0, 0);
        }
        if (digit(c, 8) >= 0) {
            return number(8, static_cast<unsigned>(digit(c, 8)), 1);
        }
        if (isLineEnd(c) && m_at < m_text.size() && isLineEnd(m_text[m_at]) && m_text[m_at] != c) {
            ++m_at;
        }
        return c != '\0' && std::strchr("abfnrtv\"?'\\", c) ? '\\' : kEnd;  // none of those is looked for
    }

    int number(unsigned base, unsigned value, int digits)
    {
        for (; m_at < m_text.size() && digit(m_text[m_at], base) >= 0; ++digits) {
            value = value * base + static_cast<unsigned>(digit(m_text[m_at++], base));
        }
        return digits > 0 ? static_cast<int>(value & 0xffff) : kEnd;
    }

    static int digit(char c, unsigned base)
    {
        const int value = c >= '0' && c <= '9' ? c - '0'
                        : c >= 'a' && c <= 'f' ? c - 'a' + 10
                        : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                               : -1;
        return value < static_cast<int>(base) ? value : -1;
    }

    const QByteArray& m_text;
    int m_at;
};

bool isObject(const QByteArray& text, int at)
{
    ValueText object(text, at);
    if (!object.take(kObjects)) {
        return ValueText(text, at).take(kDates);
    }
    for (const int code : kColourType) {
        if (object.next() != code) {
            return true;
        }
    }
    return false;
}

// Where a value may begin; some of these places lie within one.
bool beginsValue(const QByteArray& text, int at)
{
    return at > 0 && (text[at - 1] == '=' || text[at - 1] == ',');
}

}  // namespace

QByteArray harmlessIni(const QByteArray& text)
{
    QByteArray result;
    int copied = 0;
    for (int at = 1; at < text.size(); ++at) {
        if (!beginsValue(text, at)) {
            continue;
        }
        int start = at;
        while (start < text.size() && (isBlank(text[start]) || text[start] == '"')) {
            ++start;
        }
        if (isObject(text, start)) {
            result += text.mid(copied, start - copied) + kMarkAsEscapes;
            copied = start;
        }
    }
    return copied == 0 ? text : result + text.mid(copied);
}

QVariant withoutMarks(const QVariant& value)
{
    const QString mark = QString::fromLatin1(kMark);
    switch (value.type()) {
    case QVariant::String: return value.toString().remove(mark);
    case QVariant::StringList: return value.toStringList().replaceInStrings(mark, QString());
    case QVariant::ByteArray: return value.toByteArray().replace(kMark, QByteArray());
    default: return value;
    }
}
