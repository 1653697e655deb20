#include "workbench/mel/ScriptHost.h"

#include <gtest/gtest.h>

TEST(ScriptUndo, WhatLeavesNoTraceIsNoStep)
{
    ScriptHost host;
    ASSERT_TRUE(host.run("createNode transform -n a;"));
    for (const char* text : {"getAttr a.tx;", "ls;", "$x = 1;", "select -r {};", "about -batch;", "optionVar -iv a 1;"})
        ASSERT_TRUE(host.run(text));
    EXPECT_EQ(host.eval("undoInfo -q"), "1");
    EXPECT_EQ(host.eval("undoInfo -q -undoName"), "createNode transform -n a");
    host.session.script().execute("createNode transform -n b;", false, false);
    EXPECT_EQ(host.eval("undoInfo -q"), "1");
    EXPECT_FALSE(host.run("setAttr a.tx 4; setAttr a.noSuch 1;"));
    EXPECT_EQ(host.eval("getAttr a.tx"), "4") << "what was done before the error stays";
    EXPECT_TRUE(host.run("undo"));
    EXPECT_EQ(host.eval("getAttr a.tx"), "0") << "and can be undone";
    EXPECT_FALSE(host.run("setAttr a.t 1 2 x;"));
    EXPECT_EQ(host.eval("getAttr a.t"), "0 0 0") << "a command that fails half way takes its own work back";
    host.run("setAttr a.tx 5");
    host.session.script().execute("setAttr -l on a.tx", false, false);
    EXPECT_EQ(host.eval("undo; getAttr a.tx"), "0") << "undo reaches what was locked later";
}

TEST(ScriptUndo, TheCommandsSayWhatTheyDo)
{
    ScriptHost host;
    int undone = 0;
    int redone = 0;
    host.session.events.add("Undo", [&] { ++undone; });
    host.session.events.add("Redo", [&] { ++redone; });
    host.run("undo; redo;");
    EXPECT_EQ(host.warnings,
              (std::vector<std::string>{"There are no more commands to undo.", "There are no more commands to redo."}));
    host.run("createNode transform -n a;");
    host.run("undo");
    host.run("redo");
    EXPECT_EQ(host.infos,
              (std::vector<std::string>{"Undo: createNode transform -n a", "Redo: createNode transform -n a"}));
    EXPECT_EQ(undone, 1);
    EXPECT_EQ(redone, 1);
    EXPECT_EQ(host.eval("objExists a"), "1");
    host.run("undoInfo -state off; createNode transform -n b; undoInfo -state on;");
    EXPECT_EQ(host.eval("undoInfo -q"), "0");
    host.run("createNode transform;");
    host.run("flushUndo;");
    EXPECT_EQ(host.eval("undoInfo -q -uqe"), "1");
}

TEST(ScriptUndo, ChunksThatScriptsOpenJoinTextsUntilTheyAreClosed)
{
    ScriptHost host;
    host.run("undoInfo -openChunk -chunkName \"Outer\"; createNode transform -n a;");
    host.run("undoInfo -ock; createNode transform -n b;");
    EXPECT_EQ(host.eval("undoInfo -q -chunkName"), "Outer");
    host.run("undoInfo -closeChunk;");
    host.run("createNode transform -n c;");
    EXPECT_EQ(host.eval("undoInfo -q"), "0") << "one is still open";
    host.run("undoInfo -cck;");
    EXPECT_EQ(host.eval("undoInfo -q -undoName"), "Outer");
    EXPECT_EQ(host.eval("undoInfo -q -chunkName"), "");
    host.run("createNode transform -n d; undoInfo -closeChunk; createNode transform -n e;");
    EXPECT_EQ(host.output("undoInfo -q -printQueue"),
              "1: Outer\n2: createNode transform -n d; undoInfo -closeChunk; createNode transform -n e\n")
        << "a script cannot close the step of its own text";
    host.run("undo; undo;");
    EXPECT_EQ(host.eval("size(`ls a b c d e`)"), "0");
    EXPECT_EQ(host.eval("undoInfo -q -redoName"), "Outer");
}

TEST(ScriptUndo, TheQueueIsAsLongAsItIsTold)
{
    ScriptHost host;
    const std::string make = "createNode transform;";
    host.run("undoInfo -length 2");
    for (int i = 0; i < 4; ++i)
        host.run(make);
    EXPECT_EQ(host.eval("undoInfo -q"), "2");
    host.run("undoInfo -infinity on");
    for (int i = 0; i < 4; ++i)
        host.run(make);
    EXPECT_EQ(host.eval("undoInfo -q"), "6");
    EXPECT_EQ(host.eval("undoInfo -infinity off; undoInfo -q"), "2");
    EXPECT_EQ(host.eval("undoInfo -swf off; createNode transform -n x; undoInfo -q"), "2");
    EXPECT_EQ(host.eval("undoInfo -q -state"), "0");
    EXPECT_EQ(host.eval("undoInfo -swf on; undo; size(`ls x`)"), "1") << "it was not recorded";
    EXPECT_EQ(host.eval("undoInfo -state off; undoInfo -q"), "0");
}

TEST(ScriptUndo, UndoInsideAProcedureTakesBackTheLastStep)
{
    ScriptHost host;
    host.run("global proc int count() { return size(`ls \"n*\"`); }"
             "global proc string there() { createNode transform -n n1; createNode transform -n n2; int $a = count();"
             "undo; int $b = count(); redo; return ($a + \" \" + $b + \" \" + count()); }");
    host.run("createNode transform -n n0;");
    EXPECT_EQ(host.eval("there"), "3 1 3") << "what the text has done so far is a step";
    host.run("undo; undo;");
    EXPECT_EQ(host.eval("count"), "0");
    EXPECT_EQ(host.eval("redo; redo; count"), "3");
}

TEST(ScriptUndo, InBatchEveryStatementIsAStep)
{
    ScriptHost host;
    const kernel::ScriptResult result = host.interpreter().executeBatch(
        "createNode transform -n a;\nfor ($i = 0; $i < 2; $i++) createNode transform -n b;\nundo;\n"
        "int $bs = size(`ls \"b*\"`); redo; undo; undo; int $as = size(`ls a`); print ($bs + \" \" + $as);");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(host.printed, "0 0");

    host.printed.clear();
    EXPECT_FALSE(host.interpreter().executeBatch("print 1; noSuch; print 2;").ok);
    EXPECT_EQ(host.printed, "1") << "the first error ends the text";
    EXPECT_FALSE(host.interpreter().executeBatch("print 3; print (;").ok);
    EXPECT_EQ(host.printed, "1");
    EXPECT_EQ(kernel::toText(host.interpreter().executeBatch("int $z = 4; { int $y = 5; print $y; } $z + 1;").value),
              "5");
}
