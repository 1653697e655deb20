#include "app/Batch.h"

#include "app/Console.h"
#include "support/HostFixture.h"

#include <QFile>

namespace {

class Batch : public HostFixture {
protected:
    int runLine(const std::vector<std::string>& arguments)
    {
        const app::CommandLine line = app::parseCommandLine(arguments);
        EXPECT_EQ(line.error, "");
        return app::runBatch(host(), line, m_folder.path().toStdString());
    }
    int runSteps(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "-noPlugin");
        return runLine(arguments);
    }
    std::string file(const char* name, const QByteArray& content)
    {
        QFile out(m_folder.filePath(name));
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
        return out.fileName().toStdString();
    }
    std::string results()
    {
        std::string all;
        for (const std::string& text : said(kernel::Severity::Result)) {
            all += text + ";";
        }
        return all;
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace

TEST_F(Batch, RunsStepsInOrderAndGivesTheResultsOfCommands)
{
    const std::string script = file("name.mel", "createNode transform -n \"made\";\n");
    EXPECT_EQ(runSteps({"-command", "createNode transform -n first", "-script", script, "-command", "objExists made",
                        "-command", "evalDeferred \"createNode transform -n later\"", "-command", "objExists later"}),
              0);
    EXPECT_EQ(results(), "first;1;1;") << "work for idle time is done before the next step";
}

TEST_F(Batch, StopsAtTheFirstFailure)
{
    EXPECT_EQ(runSteps({"-command", "noSuchCommand", "-command", "createNode transform -n after"}), 1);
    EXPECT_EQ(session().scene.findOrNull("after"), nullptr);
    EXPECT_EQ(errors().size(), 1u);
    EXPECT_EQ(runSteps({"-script", "/no/such/file.mel"}), 1);
    EXPECT_EQ(runSteps({"-file", "/no/such/file.ma", "-command", "createNode transform -n after"}), 1);
    EXPECT_EQ(session().scene.findOrNull("after"), nullptr);
}

TEST_F(Batch, AModuleThatIsMissingOrNoModuleEndsTheRun)
{
    EXPECT_EQ(runLine({"-command", "createNode transform -n after"}), 1);
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_NE(errors()[0].find("lumisketch2"), std::string::npos) << errors()[0];
    EXPECT_EQ(session().scene.findOrNull("after"), nullptr);
    EXPECT_FALSE(host().loadModule(file("text.so", "no module at all")));
    EXPECT_EQ(errors().size(), 2u);
}

TEST_F(Batch, AScriptThatQuitsSaysTheExitStatus)
{
    EXPECT_EQ(runSteps({"-command", "quit -exitCode 7", "-command", "createNode transform -n after"}), 7);
    EXPECT_EQ(session().scene.findOrNull("after"), nullptr);
}

TEST_F(Batch, WindowCommandsDoNothingWithoutAWindow)
{
    EXPECT_TRUE(run("refresh -force; lookThru persp; getPanel -all;"));
    EXPECT_EQ(kernel::toText(evaluate("modelPanel -exists modelPanel4")), "0");
    EXPECT_EQ(kernel::toText(evaluate("lookThru -q")), "");
    EXPECT_EQ(kernel::toText(evaluate("$here = $gPlayBackSlider")), "");
    EXPECT_FALSE(run("lookThru noSuchCamera"));
    EXPECT_FALSE(run("modelPanel -q -camera modelPanel4"));
}

TEST_F(Batch, TheConsoleWritesTheFormsOfBatchMode)
{
    std::FILE* const stream = std::tmpfile();
    {
        kernel::Output output;
        const app::Console console(output, stream, app::Console::Shown::Everything);
        output.say(kernel::Severity::Echo, "print hello");
        output.say(kernel::Severity::Plain, "hel");
        output.say(kernel::Severity::Plain, "lo");
        output.error("No object matches name: foo");
        output.say(kernel::Severity::Plain, "done\n");
        output.warning("odd");
        output.say(kernel::Severity::Result, "3");
        output.info("File read");
    }
    std::rewind(stream);
    char text[200] = {};
    std::fread(text, 1, sizeof text - 1, stream);
    std::fclose(stream);
    EXPECT_STREQ(text, "hello\nError: No object matches name: foo\ndone\nWarning: odd\n3\nFile read\n");
}
