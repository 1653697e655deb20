#include "app/Journal.h"

#include "app/Theme.h"
#include "support/QtPrint.h"
#include "workbench/app/WindowSession.h"

#include <QTextBlock>

namespace {

using kernel::Severity;

class Journal : public testing::Test {
protected:
    QStringList lines()
    {
        turnEventLoop();
        return journal.document()->toPlainText().split('\n');
    }

    kernel::Output output;
    app::Journal journal{output};
};

}  // namespace

TEST_F(Journal, WritesEachKindOfMessageInItsForm)
{
    output.say(Severity::Echo, "int $n = 3;\n$n;");
    output.say(Severity::Result, "3");
    output.info("File read in  0.12 seconds.");
    output.warning("careful");
    output.error("line 1.41: Syntax error");
    output.say(Severity::Plain, "one ");
    output.say(Severity::Plain, "line\nand a half");
    output.error("on a line of its own");
    EXPECT_EQ(lines(), (QStringList{"int $n = 3;", "$n;", "// Result: 3 //", "// File read in  0.12 seconds. //",
                                    "// Warning: careful //", "// Error: line 1.41: Syntax error //", "one line",
                                    "and a half", "// Error: on a line of its own //", ""}));
    const QTextBlock error = journal.document()->findBlockByNumber(5);
    EXPECT_EQ(error.begin().fragment().charFormat().foreground().color(), app::messageTextColour(Severity::Error));
}

TEST_F(Journal, TakesMuchAtOnceAndForgetsTheOldest)
{
    for (int i = 1; i <= 100000; ++i) {
        output.say(Severity::Plain, std::to_string(i) + '\n');
    }
    QStringList all = lines();
    EXPECT_EQ(all.size(), 100001);
    EXPECT_EQ(all.at(54321), "54322");
    for (int i = 1; i <= 110000; ++i) {
        output.say(Severity::Plain, "more " + std::to_string(i) + '\n');
    }
    all = lines();
    EXPECT_LE(all.size(), 200000);
    EXPECT_EQ(all.at(all.size() - 2), "more 110000");

    // Neither lines without an end nor very many long ones fill the memory.
    const std::string longText(3000000, 'x');
    for (int i = 0; i < 7; ++i) {
        output.say(Severity::Plain, longText);
        all = lines();
    }
    EXPECT_LE(journal.document()->characterCount(), 17 << 20);
    int longest = 0;
    for (const QString& line : all) {
        longest = qMax(longest, line.size());
    }
    EXPECT_LE(longest, 2000);
    journal.clear();
    EXPECT_EQ(lines(), QStringList(""));
}

TEST(KeptTexts, ComeBackAsTheyWere)
{
    QTemporaryDir folder;
    const std::string path = folder.filePath("texts").toStdString();
    EXPECT_TRUE(app::readKeptTexts(path, 1000).isEmpty());
    const QVector<app::KeptText> texts{
        {'s', "one"}, {'x', QString::fromUtf8("three\n\n  lines \xc3\xa9\n")}, {'s', ""}, {'s', "\ttabbed\r\nline"}};
    app::writeKeptTexts(path, texts, 1000);
    const QVector<app::KeptText> read = app::readKeptTexts(path, 1000);
    ASSERT_EQ(read.size(), texts.size());
    for (int i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(read[i].mark, texts[i].mark);
        EXPECT_EQ(read[i].text, texts[i].text);
    }
    app::writeKeptTexts(path, texts, 20);
    EXPECT_EQ(app::readKeptTexts(path, 1000).size(), 2) << "the last that fit";
    app::writeKeptTexts(path, texts, 1000);
    EXPECT_EQ(app::readKeptTexts(path, 25).size(), 2) << "of a file that somebody made larger";
    EXPECT_THROW(app::writeKeptTexts(folder.filePath("no/such/folder").toStdString(), texts, 1000),
                 kernel::CommandError);
}
