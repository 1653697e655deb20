#include "app/ScriptHighlighter.h"

#include "app/Theme.h"
#include "support/QtPrint.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <gtest/gtest.h>

namespace {

using Style = app::ScriptHighlighter::Style;

/// One letter for the style of each character, a dot for none.
QStringList styles(const QString& text)
{
    const struct {
        Style style;
        char letter;
    } letters[] = {
        {Style::Keyword, 'k'}, {Style::Type, 't'},   {Style::Command, 'c'}, {Style::Variable, 'v'},
        {Style::String, 's'},  {Style::Escape, 'e'}, {Style::Number, 'n'},  {Style::Comment, '/'},
    };
    QTextDocument document;
    app::ScriptHighlighter highlighter(&document,
                                       [](const std::string& name) { return name == "ls" || name == "size"; });
    document.setPlainText(text);
    highlighter.rehighlight();
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString line(block.text().size(), '.');
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            for (const auto& l : letters) {
                if (range.format.foreground().color() == app::ScriptHighlighter::colour(l.style)) {
                    line.replace(range.start, range.length, QString(range.length, l.letter));
                }
            }
        }
        for (int i = 0; i < line.size(); ++i) {
            if (block.text()[i].isSpace() && line[i] == '/') {
                line[i] = '.';  // blanks have no colour to see
            }
        }
        lines << line;
    }
    return lines;
}

}  // namespace

TEST(ScriptHighlighter, ColoursTheWordsOfTheLanguage)
{
    const struct {
        QString text;
        QString styles;
    } cases[] = {
        {"if ($a == 12) return;", "kk..vv....nn..kkkkkk."},
        {"string $b[] = {1.5, .5};", "tttttt.vv......nnn..nn.."},
        {"ls -in 3; x ls", "cc.....n......"},
        {"print `ls -sl`;", ".......cc......"},
        {"$n = size($b) + 1", "vv...cccc.vv....n"},
        {"{ls; unknown;}", ".cc..........."},
        {"a \"x\\ty\\\"\"; 1", "..sseesees..n"},
        {"ls // ls \"no", "cc.//.//.///"},
        {"1 /* ls */ 2 // $x", "n.//.//.//.n.//.//"},
        {"$ x", "..."},
        {QString::fromUtf8("\"\xc3\xa9\xe4\xb8\xad\" $n"), "ssss.vv"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(styles(c.text).first(), c.styles) << c.text.toStdString();
    }
}

TEST(ScriptHighlighter, CarriesCommentsAndJoinedStringsOverLines)
{
    EXPECT_EQ(styles("1 /* a\nls\nb */ 2\n3"), (QStringList{"n.//./", "//", "/.//.n", "n"}));
    EXPECT_EQ(styles("\"a\\\nls \\n\\\nb\" 1"), (QStringList{"sss", "sssees", "ss.n"}));
    EXPECT_EQ(styles("\"a\n1"), (QStringList{"ss", "n"})) << "a string that is not joined ends with its line";
    EXPECT_EQ(styles("// /*\n1"), (QStringList{"//.//", "n"}));
    EXPECT_EQ(styles("/* // */ /*\n1"), (QStringList{"//.//.//.//", "/"}));
}
