#include "mel/Lexer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstring>
#include <unordered_map>

namespace mel {

namespace {

enum ByteClass : unsigned char {
    kBlank = 1,
    kLetter = 2,  ///< "_" too
    kDigit = 4,
    kJoint = 8,  ///< joins or extends the words of a command's arguments
    kHex = 16,
};

constexpr std::array<unsigned char, 256> makeByteClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned char c : {' ', '\t', '\n', '\r', '\f'})
        classes[c] |= kBlank;
    for (unsigned char c = 'a'; c <= 'z'; ++c)
        classes[c] |= kLetter;
    for (unsigned char c = 'A'; c <= 'Z'; ++c)
        classes[c] |= kLetter;
    classes['_'] |= kLetter;
    for (unsigned char c = '0'; c <= '9'; ++c)
        classes[c] |= kDigit | kHex;
    for (unsigned char c : {'a', 'b', 'c', 'd', 'e', 'f', 'A', 'B', 'C', 'D', 'E', 'F'})
        classes[c] |= kHex;
    for (unsigned char c : {'|', ':', '.', '*', '?'})
        classes[c] |= kJoint;
    return classes;
}

constexpr std::array<unsigned char, 256> kByteClasses = makeByteClasses();

bool is(char c, unsigned char classes)
{
    return (kByteClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

const std::unordered_map<std::string_view, Tok> kReservedWords = {
    {"break", Tok::Break},       {"case", Tok::Case},         {"catch", Tok::Catch}, {"catchQuiet", Tok::CatchQuiet},
    {"continue", Tok::Continue}, {"default", Tok::Default},   {"do", Tok::Do},       {"else", Tok::Else},
    {"false", Tok::False},       {"off", Tok::False},         {"no", Tok::False},    {"float", Tok::FloatType},
    {"for", Tok::For},           {"global", Tok::Global},     {"if", Tok::If},       {"in", Tok::In},
    {"int", Tok::IntType},       {"matrix", Tok::MatrixType}, {"proc", Tok::Proc},   {"return", Tok::Return},
    {"string", Tok::StringType}, {"switch", Tok::Switch},     {"true", Tok::True},   {"on", Tok::True},
    {"yes", Tok::True},          {"vector", Tok::VectorType}, {"while", Tok::While},
};
constexpr std::size_t kLongestReservedWord = 10;

/// What a mark means alone, twice in a row, and with "=" behind it; Bad where it means nothing.
struct Operator {
    char mark = 0;
    Tok alone = Tok::Bad;
    Tok doubled = Tok::Bad;
    Tok withAssign = Tok::Bad;
};
constexpr Operator kOperators[] = {
    {'(', Tok::LeftParen},
    {')', Tok::RightParen},
    {'[', Tok::LeftBracket},
    {']', Tok::RightBracket},
    {'{', Tok::LeftBrace},
    {'}', Tok::RightBrace},
    {',', Tok::Comma},
    {';', Tok::Semicolon},
    {':', Tok::Colon},
    {'?', Tok::Question},
    {'`', Tok::Backquote},
    {'.', Tok::Dot},
    {'+', Tok::Plus, Tok::Increment, Tok::PlusAssign},
    {'-', Tok::Minus, Tok::Decrement, Tok::MinusAssign},
    {'*', Tok::Times, Tok::Bad, Tok::TimesAssign},
    {'/', Tok::Divide, Tok::Bad, Tok::DivideAssign},
    {'%', Tok::Modulo, Tok::Bad, Tok::ModuloAssign},
    {'^', Tok::Cross, Tok::Bad, Tok::CrossAssign},
    {'=', Tok::Assign, Tok::Equal},
    {'!', Tok::Not, Tok::Bad, Tok::NotEqual},
    {'<', Tok::Less, Tok::LeftAngles, Tok::LessEqual},
    {'>', Tok::Greater, Tok::RightAngles, Tok::GreaterEqual},
    {'&', Tok::Bad, Tok::And},
    {'|', Tok::Bad, Tok::Or},
};

constexpr std::array<Operator, 256> operatorsByMark()
{
    std::array<Operator, 256> table{};
    for (const Operator& op : kOperators)
        table[static_cast<unsigned char>(op.mark)] = op;
    return table;
}

constexpr std::array<Operator, 256> kOperatorOfMark = operatorsByMark();

char unescaped(char c)
{
    switch (c) {
    case 'n': return '\n';
    case 't': return '\t';
    case 'r': return '\r';
    default: return c;  // the backslash goes
    }
}

}  // namespace

bool isReservedWord(Tok kind)
{
    return kind >= Tok::Break && kind <= Tok::While;
}

Tok kindOfName(std::string_view name)
{
    if (name.size() > kLongestReservedWord || !(name[0] >= 'a' && name[0] <= 'z'))
        return Tok::Identifier;
    const auto found = kReservedWords.find(name);
    return found == kReservedWords.end() ? Tok::Identifier : found->second;
}

Token Lexer::next()
{
    skipBlanks();
    const std::size_t begin = m_at;
    const char c = peek();
    if (m_at >= m_text.size())
        return finish(Tok::End, begin);
    if (is(c, kLetter))
        return scanIdentifier(begin);
    if (startsNumber(0))
        return scanNumber(begin);
    if (c == '"')
        return scanString(begin);
    if (c == '$')
        return scanVariable(begin);
    return scanOperator(begin);
}

Token Lexer::nextArgument()
{
    skipBlanks();
    const std::size_t begin = m_at;
    const char c = peek();
    if (m_at >= m_text.size())
        return finish(Tok::End, begin);
    if (c == '"')
        return scanString(begin);
    if (c == '-' && is(peek(1), kLetter)) {
        m_at += 2;
        while (is(peek(), kLetter | kDigit))
            ++m_at;
        return finish(Tok::Flag, begin);
    }
    if (startsNumber(c == '-' ? 1 : 0))
        return scanNumberArgument(begin);
    if (is(c, kLetter | kJoint))
        return scanWord(begin);
    if (c == '$')
        return scanVariable(begin);
    return scanOperator(begin);
}

void Lexer::skipBlanks()
{
    do {
        while (is(peek(), kBlank))
            ++m_at;
    } while (peek() == '/' && skipComment());
}

bool Lexer::skipComment()
{
    const char* const end = peek(1) == '/' ? "\n" : peek(1) == '*' ? "*/" : nullptr;
    if (!end)
        return false;
    const std::size_t found = m_text.find(end, m_at + 2);
    m_at = found == std::string_view::npos ? m_text.size() : found + std::strlen(end);
    return true;
}

Token Lexer::finish(Tok kind, std::size_t begin)
{
    return {kind, begin, m_at};
}

// Strings may be megabytes long, so the scan leaps from one mark to the next instead of walking the bytes.
Token Lexer::scanString(std::size_t begin)
{
    std::size_t at = begin + 1;
    std::size_t quote = m_text.find('"', at);
    for (;;) {
        const std::size_t limit = std::min(quote, m_text.size());
        const std::string_view piece = m_text.substr(at, limit - at);
        const std::size_t backslash = piece.find('\\');
        const std::size_t lineEnd = piece.substr(0, backslash).find('\n');
        if (lineEnd != std::string_view::npos || (backslash == std::string_view::npos && limit == m_text.size())) {
            m_at = lineEnd == std::string_view::npos ? m_text.size() : at + lineEnd;
            return finish(Tok::Bad, begin);
        }
        if (backslash == std::string_view::npos)
            break;
        std::size_t after = at + backslash + 1;
        if (m_text.substr(after, 2) == "\r\n")
            ++after;
        at = std::min(after + 1, m_text.size());
        if (quote < at)
            quote = m_text.find('"', at);
    }
    m_at = quote + 1;
    return finish(Tok::String, begin);
}

Token Lexer::scanVariable(std::size_t begin)
{
    ++m_at;
    if (!is(peek(), kLetter))
        return finish(Tok::Bad, begin);
    while (is(peek(), kLetter | kDigit))
        ++m_at;
    return finish(Tok::Variable, begin);
}

Token Lexer::scanIdentifier(std::size_t begin)
{
    while (is(peek(), kLetter | kDigit))
        ++m_at;
    return finish(kindOfName(m_text.substr(begin, m_at - begin)), begin);
}

bool Lexer::startsNumber(std::size_t ahead) const
{
    return is(peek(ahead), kDigit) || (peek(ahead) == '.' && is(peek(ahead + 1), kDigit));
}

Token Lexer::scanNumber(std::size_t begin)
{
    if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X') && is(peek(2), kHex)) {
        for (m_at += 2; is(peek(), kHex);)
            ++m_at;
        return finish(Tok::Integer, begin);
    }
    Tok kind = Tok::Integer;
    while (is(peek(), kDigit))
        ++m_at;
    if (peek() == '.' && peek(1) != '.') {
        kind = Tok::Float;
        for (++m_at; is(peek(), kDigit);)
            ++m_at;
    }
    const std::size_t sign = peek(1) == '-' || peek(1) == '+' ? 1 : 0;
    if ((peek() == 'e' || peek() == 'E') && is(peek(1 + sign), kDigit)) {
        kind = Tok::Float;
        for (m_at += 1 + sign; is(peek(), kDigit);)
            ++m_at;
    }
    return finish(kind, begin);
}

// Digits that run on into letters or a colon are a word: 12film, 1:20.
Token Lexer::scanNumberArgument(std::size_t begin)
{
    if (peek() == '-')
        ++m_at;
    const Token number = scanNumber(m_at);
    if (is(peek(), kLetter | kDigit) || peek() == ':')
        return scanWord(begin);
    return finish(number.kind, begin);
}

// An index of plain numbers belongs to the word; one that must be computed is left to the parser, which finds "[".
Token Lexer::scanWord(std::size_t begin)
{
    for (;;) {
        while (is(peek(), kLetter | kDigit | kJoint))
            ++m_at;
        if (peek() != '[')
            break;
        const std::size_t close = m_text.find_first_not_of("0123456789:*", m_at + 1);
        if (close == std::string_view::npos || m_text[close] != ']')
            break;
        m_at = close + 1;
    }
    return finish(Tok::Word, begin);
}

Token Lexer::scanOperator(std::size_t begin)
{
    const char mark = m_text[begin];
    const Operator& op = kOperatorOfMark[static_cast<unsigned char>(mark)];
    const char behind = peek(1);
    const Tok pair = behind == mark ? op.doubled : behind == '=' ? op.withAssign : Tok::Bad;
    m_at += pair == Tok::Bad ? 1 : 2;
    return finish(pair == Tok::Bad ? op.alone : pair, begin);
}

std::string Lexer::stringContent(const Token& token) const
{
    const std::string_view raw = m_text.substr(token.begin + 1, token.end - token.begin - 2);
    std::size_t backslash = raw.find('\\');
    if (backslash == std::string_view::npos)
        return std::string(raw);
    std::string content;
    content.reserve(raw.size());
    std::size_t at = 0;
    for (; backslash != std::string_view::npos; backslash = raw.find('\\', at)) {
        content.append(raw, at, backslash - at);
        at = backslash + 2;
        if (raw.substr(backslash + 1, 2) == "\r\n")
            ++at;
        else if (raw[backslash + 1] != '\n')
            content += unescaped(raw[backslash + 1]);
    }
    content.append(raw, at, std::string_view::npos);
    return content;
}

kernel::Value Lexer::numberValue(const Token& token) const
{
    std::string_view digits = text(token);
    const bool negative = digits[0] == '-';
    if (negative)
        digits.remove_prefix(1);
    if (digits.size() > 2 && (digits[1] == 'x' || digits[1] == 'X')) {
        unsigned long long bits = 0;
        std::from_chars(digits.data() + 2, digits.data() + digits.size(), bits, 16);
        const int number = int(unsigned(bits));
        return negative ? int(0u - unsigned(number)) : number;
    }
    if (token.kind == Tok::Integer) {
        long long number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (negative)
            number = -number;
        if (read.ec == std::errc() && number >= INT_MIN && number <= INT_MAX)
            return int(number);
    }
    double number = 0;
    kernel::parseDouble(std::string(digits), number);
    return negative ? -number : number;
}

}  // namespace mel
