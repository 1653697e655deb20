#include "app/ScriptHighlighter.h"

#include "mel/Lexer.h"

#include <QColor>

namespace app {

namespace {

using mel::Tok;
using mel::Token;

/// What a line leaves open for the next one; the numbers are those of QSyntaxHighlighter's block states.
enum Open { kNothing = -1, kComment = 1, kString = 2 };

const char* opener(int state)
{
    return state == kComment ? "/*" : state == kString ? "\"" : "";
}

bool isType(Tok kind)
{
    switch (kind) {
    case Tok::FloatType:
    case Tok::IntType:
    case Tok::MatrixType:
    case Tok::StringType:
    case Tok::VectorType: return true;
    default: return false;
    }
}

/// Whether a name after such a token begins a command.
bool startsCommand(Tok before)
{
    switch (before) {
    case Tok::End:  // nothing before it in the line
    case Tok::Semicolon:
    case Tok::LeftBrace:
    case Tok::RightBrace:
    case Tok::RightParen:
    case Tok::Backquote:
    case Tok::Else:
    case Tok::Do:
    case Tok::Colon: return true;
    default: return false;
    }
}

/// The comments in what lies between two tokens; true when the last one is still open.
bool leavesCommentOpen(std::string_view gap)
{
    for (std::size_t at = 0; (at = gap.find('/', at)) != std::string_view::npos;) {
        if (gap.substr(at, 2) == "//") {
            return false;
        }
        const std::size_t end = gap.find("*/", at + 2);
        if (end == std::string_view::npos) {
            return true;
        }
        at = end + 2;
    }
    return false;
}

bool endsInBackslash(std::string_view text)
{
    const std::size_t last = text.find_last_not_of('\\');
    const std::size_t count = text.size() - (last == std::string_view::npos ? 0 : last + 1);
    return count % 2 == 1;
}

}  // namespace

/// One line on its way through the lexer. It is lexed as Latin-1, so that bytes count as the document's characters do;
/// outside of strings and comments the language has no others anyway.
class ScriptHighlighter::Line {
public:
    Line(ScriptHighlighter& owner, const QString& text, int state)
        : m_owner(owner), m_shift(int(qstrlen(opener(state)))), m_text(opener(state) + text.toLatin1().toStdString()),
          m_lexer(m_text)
    {}

    /// Gives what it leaves open.
    int colour()
    {
        std::size_t end = 0;
        for (Token token = m_lexer.next();; token = m_lexer.next()) {
            const std::string_view gap = std::string_view(m_text).substr(end, token.begin - end);
            set(end, token.begin, Style::Comment);
            if (token.kind == Tok::End) {
                return leavesCommentOpen(gap) ? kComment : kNothing;
            }
            colourToken(token, end);
            if (token.kind == Tok::Bad && m_text[token.begin] == '"' && endsInBackslash(m_lexer.text(token))) {
                return kString;
            }
            m_before = token.kind;
            end = token.end;
        }
    }

private:
    void set(std::size_t begin, std::size_t end, Style style)
    {
        QTextCharFormat format;
        format.setForeground(ScriptHighlighter::colour(style));
        const int first = std::max(0, int(begin) - m_shift);
        m_owner.setFormat(first, int(end) - m_shift - first, format);
    }

    void colourToken(const Token& token, std::size_t previousEnd)
    {
        // The name of a flag is no word of the language.
        const bool isFlag = m_before == Tok::Minus && token.begin == previousEnd;
        switch (token.kind) {
        case Tok::Integer:
        case Tok::Float: set(token.begin, token.end, Style::Number); break;
        case Tok::Variable: set(token.begin, token.end, Style::Variable); break;
        case Tok::String: colourString(token); break;
        case Tok::Bad:
            if (m_text[token.begin] == '"') {
                colourString(token);
            }
            break;
        case Tok::Identifier:
            if (!isFlag && isCommand(token)) {
                set(token.begin, token.end, Style::Command);
            }
            break;
        default:
            if (!isFlag && mel::isReservedWord(token.kind)) {
                set(token.begin, token.end, isType(token.kind) ? Style::Type : Style::Keyword);
            }
        }
    }

    bool isCommand(const Token& name) const
    {
        const bool isCall = name.end < m_text.size() && m_text[name.end] == '(';
        return (isCall || startsCommand(m_before)) && m_owner.m_isCommand(std::string(m_lexer.text(name)));
    }

    void colourString(const Token& token)
    {
        set(token.begin, token.end, Style::String);
        for (std::size_t at = token.begin; at + 1 < token.end; ++at) {
            if (m_text[at] == '\\') {
                set(at, at + 2, Style::Escape);
                ++at;
            }
        }
    }

    ScriptHighlighter& m_owner;
    const int m_shift;  ///< what stands in front for the open comment or string
    const std::string m_text;
    mel::Lexer m_lexer;
    Tok m_before = Tok::End;
};

ScriptHighlighter::ScriptHighlighter(QTextDocument* document, std::function<bool(const std::string&)> isCommand)
    : QSyntaxHighlighter(document), m_isCommand(std::move(isCommand))
{}

QColor ScriptHighlighter::colour(Style style)
{
    switch (style) {
    case Style::Keyword: return QColor("#c3a6dc");
    case Style::Type: return QColor("#9fb4e8");
    case Style::Command: return QColor("#8fc1cf");
    case Style::Variable: return QColor("#a9cf9a");
    case Style::String: return QColor("#d9b18c");
    case Style::Escape: return QColor("#f2d6b8");
    case Style::Number: return QColor("#d4cf9a");
    case Style::Comment: return QColor("#999999");
    }
    return {};
}

void ScriptHighlighter::highlightBlock(const QString& text)
{
    setCurrentBlockState(Line(*this, text, previousBlockState()).colour());
}

}  // namespace app
