#pragma once

#include <QSyntaxHighlighter>

#include <functional>
#include <string>

namespace app {

/// Colours script text: reserved words, types, variables, strings and their escapes, numbers, comments, and the names
/// of commands where a command stands.
class ScriptHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    enum class Style { Keyword, Type, Command, Variable, String, Escape, Number, Comment };

    /// isCommand: whether the host knows a command, function or procedure of that name.
    ScriptHighlighter(QTextDocument* document, std::function<bool(const std::string&)> isCommand);

    static QColor colour(Style style);

protected:
    void highlightBlock(const QString& text) override;

private:
    class Line;

    const std::function<bool(const std::string&)> m_isCommand;
};

}  // namespace app
