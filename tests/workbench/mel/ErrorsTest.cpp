#include "workbench/mel/ScriptHost.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

using Texts = std::vector<std::string>;

/// A file that goes with the test.
struct TemporaryFile {
    TemporaryFile(const std::string& name, const std::string& text) : path(testing::TempDir() + name)
    {
        std::ofstream(path, std::ios::binary) << text;
    }
    ~TemporaryFile() { std::remove(path.c_str()); }
    const std::string path;
};

}  // namespace

TEST(ScriptErrors, ASyntaxErrorShowsTheLineAndRunsNothing)
{
    ScriptHost host;
    EXPECT_FALSE(host.run("print 1;\nglobal proc p() { }\n  print (1 + );\nprint 2;"));
    EXPECT_EQ(host.errors, (Texts{"  print (1 + );", "line 3.14: Syntax error near ')'"}));
    EXPECT_EQ(host.printed, "");
    EXPECT_EQ(host.eval("exists \"p\""), "0");
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"int $n = 1; nosuch +;", "line 1.20: Syntax error near '+'"},
        {"int $n = 1; if ($n { print 1; }", "line 1.20: Syntax error near '{'"},
        {"int $n = 1; print \"open\n\";", "line 1.19: Syntax error near '\"open'"},
        {"int $n = 1; string $s = float;", "line 1.30: Syntax error near ';'"},
        {"int $n = 1; { print 1;", "line 1.23: Syntax error at the end"},
        {"int $n = 1;\n\nproc 4() { }", "line 3.6: Syntax error near '4'"},
        {"int $n = 1; addAttr -at float;", "line 1.25: Syntax error near 'float'"},
        {"int $n = 1; case 1: print 1;", "line 1.13: Syntax error near 'case'"},
        {"int $n = 1; $n.x = 2;", "line 1.18: Syntax error near '='"},
        {"int $n = 1; 5 = $n;", "line 1.15: Syntax error near '='"},
        {"int $n = 1; + \"123456789 123456789 123456789 12345678\u00e4\";", "line 1.13: Syntax error near '+'"},
        {"int $n = 1 \"123456789 123456789 123456789 12345678\u00e4\";",
         "line 1.12: Syntax error near '\"123456789 123456789 123456789 12345678'"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(host.error(c.text), c.error) << c.text;
        EXPECT_EQ(host.interpreter().global("n"), kernel::Value()) << "declares nothing: " << c.text;
    }
}

TEST(ScriptErrors, ARunTimeErrorEndsTheTextUnlessCaught)
{
    ScriptHost host;
    EXPECT_FALSE(host.run("global proc f() { print 1; error \"stop\"; print 2; } f; print 3;"));
    EXPECT_EQ(host.printed, "1");
    EXPECT_EQ(host.errors, Texts{"stop"});

    EXPECT_EQ(host.eval("int $c = catch(f()); $c + \"!\""), "1!");
    EXPECT_EQ(host.errors, (Texts{"stop", "stop"}));
    EXPECT_EQ(host.eval("catchQuiet(eval(\"warning x; f;\")) + catch($ok = 5);"), "1");
    EXPECT_EQ(host.errors.size(), 2u);
    EXPECT_EQ(host.warnings, Texts());
    EXPECT_EQ(host.eval("catch(eval(\"1 +\"));"), "1");
    EXPECT_EQ(host.errors.back(), "line 1.4: Syntax error at the end");
    EXPECT_EQ(host.eval("warning \"careful\"; 1;"), "1");
    EXPECT_EQ(host.warnings, Texts{"careful"});
}

TEST(ScriptErrors, FilesAreNamedWithTheLine)
{
    const TemporaryFile file("errors.mel", "global proc bad() {\n    delete noSuch;\n}\n\nwarning \"w\";\nbad;\n");
    const std::string name = "file: " + file.path;
    ScriptHost host;
    EXPECT_FALSE(host.session.script().executeFile(file.path, true).ok);
    EXPECT_EQ(host.warnings, Texts{name + " line 5: w"});
    EXPECT_EQ(host.errors, Texts{name + " line 2: No object matches name: noSuch"});
    // The procedure stays, and so does where it came from.
    EXPECT_EQ(host.error("bad;"), name + " line 2: No object matches name: noSuch");
    EXPECT_EQ(host.eval("whatIs bad"), "Mel procedure found in: " + file.path);

    const TemporaryFile broken("broken.mel", "print 1;\nprint (;\n");
    EXPECT_EQ(host.error("source \"" + broken.path + "\";"),
              "file: " + broken.path + " line 2.8: Syntax error near ';'");
    EXPECT_EQ(host.error("source \"/no/such.mel\";"), "Cannot find file \"/no/such.mel\" for source statement.");
    EXPECT_FALSE(host.session.script().executeFile("/no/such.mel", true).ok);
    EXPECT_EQ(host.errors.back(), "File not found: /no/such.mel");
}

TEST(ScriptErrors, AnUnknownNameIsLookedUpInTheScriptFolder)
{
    ScriptHost host;
    host.session.prefsDir = testing::TempDir();
    ASSERT_EQ(std::system(("mkdir -p " + testing::TempDir() + "scripts").c_str()), 0);
    const TemporaryFile script("scripts/greetAll.mel",
                               "global proc string greetAll(string $n) { return \"hi \" + $n; }");
    EXPECT_EQ(host.eval("whatIs greetAll"), "Script found in: " + script.path);
    EXPECT_EQ(host.eval("greetAll you"), "hi you");
}

TEST(ScriptErrors, EchoAndResultFollowTheDisplay)
{
    ScriptHost host;
    const auto execute = [&](const char* text, bool display) { host.session.script().execute(text, display, true); };
    execute("$x = {1, 2};", true);
    execute("select -cl;", true);
    execute("3;", false);
    execute("int $declared = 4;", true);
    execute("noSuch;", true);
    EXPECT_EQ(host.echoes, (Texts{"$x = {1, 2};", "select -cl;", "int $declared = 4;", "noSuch;"}));
    EXPECT_EQ(host.results, Texts{"1 2"});
    EXPECT_EQ(host.errors, Texts{"Cannot find procedure \"noSuch\"."});

    host.echoes.clear();
    for (const char* text : {"commandEcho -state on;", "4;", "commandEcho -q -state;", "commandEcho -st off;", "5;"})
        execute(text, false);
    EXPECT_EQ(host.echoes, (Texts{"4;", "commandEcho -q -state;", "commandEcho -st off;"}));
    EXPECT_EQ(host.results, Texts{"1 2"}) << "a silent text's result stays silent";
}

TEST(ScriptErrors, HostileTextsEndInAnErrorNotInACrash)
{
    const auto repeated = [](const std::string& piece, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += piece;
        return text;
    };
    const int deep = 100000;
    const std::string texts[] = {
        "\"open",
        "\"open\nnext\";",
        "\"ends in a backslash\\",
        "print \"a",
        "/* never closed",
        "`",
        "`ls",
        "$",
        "$1",
        "{",
        "}",
        "(",
        "<<1,2>>;",
        "<<1,2,3",
        "{1,",
        "int $a[;",
        "int $a[99999999999];",
        "global",
        "global proc",
        "proc f(",
        "proc f(int) {}",
        "if (1) else;",
        "switch (1) { print 1; }",
        "for (",
        "for ($i in",
        "do ; while",
        "case 1: ;",
        "1 = 2;",
        "$a.x = 1;",
        "\xFF\xFE\x01",
        std::string("a\0b", 3),
        "cmd -",
        "cmd --",
        "cmd [",
        "cmd a[",
        "cmd a[$x",
        "catch",
        "catch(",
        "return return",
        repeated("(", deep),
        repeated("{", deep),
        repeated("!", deep) + "1",
        repeated("-", deep) + "1",
        repeated("f(", deep),
        repeated("`f (", deep / 20),
        repeated("<<", deep),
        repeated("if (1) ", deep) + ";",
        repeated("$a[", deep),
        repeated("$a = ", deep) + "1",
        repeated("1 ? ", deep),
        repeated("1 ? 2 : ", deep) + "3",
        repeated("catch(", deep),
        repeated("do ", deep),
    };
    for (const std::string& text : texts) {
        ScriptHost host;
        host.run(text);
        EXPECT_LE(host.errors.size(), 2u) << text.substr(0, 40);
    }
}

TEST(ScriptErrors, LongButFlatTextsAreNoTrouble)
{
    ScriptHost host;
    std::string sum = "0";
    std::string choice;
    std::string nested = "7";
    for (int i = 0; i < 20000; ++i) {
        sum += " + 1";
        choice += "if (0) print 1; else ";
    }
    for (int i = 0; i < 200; ++i)
        nested = "(" + nested + ")";
    EXPECT_EQ(host.eval(sum), "20000");
    EXPECT_EQ(host.output(choice + "print 2;"), "2");
    EXPECT_EQ(host.eval(nested), "7");
    EXPECT_EQ(host.eval("string $s; for ($i = 0; $i < 20000; $i++) $s += \"ab\"; size($s);"), "40000");
}
