#include "workbench/mel/ScriptHost.h"

#include <gtest/gtest.h>

namespace {

struct ValueCase {
    const char* text;
    const char* value;
};

/// Each text runs in a host of its own.
void expectValues(const std::vector<ValueCase>& cases)
{
    for (const ValueCase& c : cases) {
        ScriptHost host;
        EXPECT_EQ(host.eval(c.text), c.value) << c.text;
    }
}

void expectOutput(const std::vector<ValueCase>& cases)
{
    for (const ValueCase& c : cases) {
        ScriptHost host;
        EXPECT_EQ(host.output(c.text), c.value) << c.text;
        EXPECT_EQ(host.errors, std::vector<std::string>()) << c.text;
    }
}

void expectErrors(const std::vector<ValueCase>& cases)
{
    for (const ValueCase& c : cases) {
        ScriptHost host;
        EXPECT_EQ(host.error(c.text), c.value) << c.text;
    }
}

}  // namespace

TEST(Language, ConformanceTable)
{
    expectValues({
        {"1/3;", "0"},
        {"1/3.0;", "0.3333333333"},
        {"-7/2;", "-3"},
        {"\"5\" + 5;", "55"},
        {"1 + 2 + \"a\";", "3a"},
        {"\"a\" + 1 + 2;", "a12"},
        {"int $i = 7.9; $i;", "7"},
        {"int $j = -7.9; $j;", "-7"},
        {"0007;", "7"},
        {"0x10;", "16"},
        {".5 + 1.;", "1.5"},
        {"string $s[]; $s[2] = \"x\"; size($s);", "3"},
        {"string $s[]; $s[2] = \"x\"; $s[9];", ""},
        {"string $s[]; $s[2] = \"x\"; string $t = $s[9]; size($s);", "3"},
        {"int $a[] = {1,2}; int $b[] = $a; $b[0] = 9; $a[0];", "1"},
        {"global proc g(string $x[]) { $x[0] = \"z\"; } string $y[]; g $y; $y[0];", "z"},
        {"<<1,2,2>> * <<1,0,0>>;", "1"},
        {"float $m = <<3,4,0>>; $m;", "5"},
        {"global int $gM = 4; global proc int rd2() { global int $gM; return $gM; } rd2;", "4"},
        {"global int $gM = 4; global proc int rd2() { global int $gM; return $gM; } rd2();", "4"},
        {"global int $gM = 4; global proc int rd2() { global int $gM; return $gM; } $gM = 6; rd2();", "6"},
        {"global proc string t2(string $f, int $v) { return ($f + $v); } t2 -e 1;", "-e1"},
        {"catch(noSuch());", "1"},
        {"eval \"int $q = 2; $q * 3;\";", "6"},
        {"2 < 3 == true;", "1"},
        {"!0 + 1;", "2"},
        {"1 ? 2 : 3;", "2"},
    });
    expectOutput({
        {"$p = 3; $p = 4.7; print $p;", "4"},
        {"switch (\"b\") { case \"a\": print 1; case \"b\": print 2; case \"c\": print 3; break; default: print 4; }",
         "23"},
        {"for ($k in {3,1,2}) print $k;", "312"},
        {"print(\"a\\tb\\\\n\\n\");", "a\tb\\n\n"},
        {"print \"x\" // c\n;", "x"},
    });
    expectErrors({
        {"{ int $z = 1; } print $z;", "line 1.23: \"$z\" is an undeclared variable."},
        {"catch(noSuch());", "Cannot find procedure \"noSuch\"."},
    });
    ScriptHost host;
    EXPECT_TRUE(host.run("$gN = 4;"));
    EXPECT_EQ(host.error("global proc int rd() { return $gN; }"), "line 1.31: \"$gN\" is an undeclared variable.");
}

TEST(Language, OperatorsConvertAndBind)
{
    expectValues({
        {"7 % 3;", "1"},
        {"7.5 % 2;", "1.5"},
        {"2 + 3 * 4 - 1;", "13"},
        {"10 - 4 - 3;", "3"},
        {"(2 + 3) * 4;", "20"},
        {"1 == 1 && 2 > 3 || 1;", "1"},
        {"0 || 0 && 1;", "0"},
        {"0 ? 1 : 0 ? 2 : 3;", "3"},
        {"<<1,0,0>> ^ <<0,1,0>>;", "0 0 1"},
        {"<<1,2,3>> + 1;", "2 3 4"},
        {"<<1,2,3>> * 2;", "2 4 6"},
        {"-<<1,2,3>>;", "-1 -2 -3"},
        {"<<1,2,3>> == <<1,2,3>>;", "1"},
        {"\"abc\" == \"abc\";", "1"},
        {"\"a\" < \"b\";", "1"},
        {"2147483647 + 1;", "-2147483648"},
        {"(int) 7.9;", "7"},
        {"(string) 2.0 + 1;", "21"},
        {"int(\"3.9kg\");", "3"},
        {"float(\"2.5\") + 1;", "3.5"},
        {"vector $v = 2; $v;", "2 2 2"},
        {"vector $v = <<1,2,3>>; ($v.y);", "2"},
        {"string $s = <<1,2,3>>; $s;", "1 2 3"},
        {"$a = $b = 3; $a + $b;", "6"},
        {"$i = 5; $i++ + $i;", "11"},
        {"$i = 5; --$i;", "4"},
        {"$s = \"a\"; $s += 1; $s += \"b\"; $s;", "a1b"},
        {"$f = 2; $f /= 4; $f;", "0"},
        {"int $a[] = {1,2,3}; $a[1] += 10; $a[1]++; $a[1];", "13"},
        {"$a = {1, 2.5}; $a;", "1 2.5"},
        {"matrix $m[2][3] = <<1,2,3; 4,5,6>>; $m[1][0] = 9; $m[1][0] + $m[0][2];", "12"},
        {"yes + on + true;", "3"},
    });
    expectErrors({
        {"1/0;", "Division by zero."},
        {"1 % 0;", "Division by zero."},
        {"1.0/0;", "Division by zero."},
        {"string $s = `ls -ca`;", "Cannot convert data of type string[] to type string."},
        {"int $a[] = 3;", "Cannot convert data of type int to type int[]."},
        {"int $a[]; $a[-1] = 2;", "Array index -1 is out of range."},
        {"int $a[]; $a[999999999] = 2;", "Array index 999999999 is out of range."},
        {"int $a[]; $a[2147483648] = 2;", "Array index 2147483647 is out of range."},
        {"matrix $m[5000][5000];", "line 1.22: A matrix cannot have so many elements."},
        {"$a = {1, \"a\"};", "Cannot convert data of type string to type int."},
        {"matrix $m[2][2]; $m[2][0];", "Array index 2 is out of range."},
        {"$x = `select -cl`;", "A value is needed, but there is none."},
    });
    ScriptHost host;
    EXPECT_EQ(host.eval("int $n = \"none\"; $n;"), "0");
    EXPECT_EQ(host.warnings.size(), 1u);
}

TEST(Language, StatementsControlTheFlow)
{
    expectOutput({
        {"for ($i = 0; $i < 3; $i++) print $i;", "012"},
        {"for ($i = 0, $j = 9; $i < $j; $i++, $j--) { } print $i;", "5"},
        {"for (int $i = 0; $i < 2; $i++) print $i;", "01"},
        {"$i = 0; for (;;) { if ($i > 2) break; print ($i++); }", "012"},
        {"$i = 0; while ($i < 5) { $i++; if ($i == 2) continue; print $i; }", "1345"},
        {"$i = 9; do print $i; while ($i++ < 10);", "910"},
        {"$a = {1,2,3}; for ($x in $a) { $x = 7; $a[1] = 5; print $x; } print $a[1];", "7775"},
        {"for (string $s in {\"p\", \"q\"}) print $s;", "pq"},
        {"if (0) print 1; else if (2) print 2; else print 3;", "2"},
        {"switch (3) { case 1: print 1; default: print \"d\"; case 2: print 2; }", "d2"},
        {"for ($i in {1,2,3}) switch ($i) { case 2: continue; default: print $i; break; }", "13"},
        {"int $n = 4; { int $n = 5; print $n; } print $n;", "54"},
        {"for ($i in {1,2}) { int $a[]; $a[size($a)] = $i; print(size($a)); }", "11"},
        {"print 1; return; print 2;", "1"},
        {"int $calls; 0 && ($calls = 1); 1 || ($calls = 2); print $calls;", "0"},
        {"print {\"a\", \"b\"};", "a\nb\n"},
        {"int $n = 3; int $n; print $n;", "3"},
        {";;{};", ""},
        {"catchQuiet(eval(\"print 1; error x; print 2\")); print 3;", "13"},
        {"global proc run(string $t) { eval $t; print 2; } run(\"global proc run(string $t) { print 3; } print 1\"); "
         "run(4);",
         "123"},
    });
}

TEST(Language, ProceduresAreBoundWhenTheyAreCalled)
{
    expectOutput({
        {"global proc int f(int $n) { if ($n < 2) return 1; return $n * f($n - 1); } print(f(5));", "120"},
        {"global proc a() { b; } global proc b() { print \"later\"; } a;", "later"},
        {"global proc a() { print 1; } global proc a() { print 2; } a;", "2"},
        {"global proc a() { eval \"global proc a() { print 2; }\"; print 1; } a; a;", "12"},
        {"proc hidden() { print 1; } hidden;", "1"},
        {"global proc grow(int $a[]) { $a[size($a)] = 5; } int $v[]; grow($v); grow $v; print(size($v));", "2"},
        {"global proc keep(int $n) { $n = 5; } int $v = 1; keep($v); print $v;", "1"},
        {"global proc float half(float $x) { return $x / 2; } print(half(\"3\"));", "1.5"},
        {"global proc int f() { if (0) return 1; } print(f());", "0"},
        {"int $g = 1; global proc f() { int $g = 2; print $g; } f; print $g;", "21"},
        {"global proc f(int $n) { print $n; } $l = {1, 2}; for ($i in $l) f $i;", "12"},
        {"global proc f(int $n, string $t) { print ($n + $t); } f true true; f off off;", "1true0off"},
    });
    expectErrors({
        {"global proc f(int $n) { } f;", "Wrong number of arguments on call to f."},
        {"global proc f(int $n) { } f(1, 2);", "Wrong number of arguments on call to f."},
        {"global proc f() { return 1; }", "line 1.19: This procedure has no return value."},
        {"global proc int f() { }", "line 1.1: Procedure is missing a return statement."},
        {"global proc int f(int $a[]) { return 1; } f(3);", "Cannot convert data of type int to type int[]."},
        {"global proc f() { f; } f;", "Procedure calls are nested more than 256 deep, in f."},
        {"global proc f() { eval \"f\"; } f;", "Procedure calls are nested more than 256 deep, in f."},
        {"int $x; string $x;", "line 1.16: Invalid redeclaration of variable \"$x\" as a different type."},
        {"$x = 1; string $x;", "Invalid redeclaration of variable \"$x\" as a different type."},
        {"global int $x = `about -batch`;", "line 1.18: Global variables can only be initialised with constants."},
        {"print foo;", ""},
        {"print (foo);", "line 1.8: Invalid use of Maya object \"foo\"."},
    });
    ScriptHost host;
    ASSERT_TRUE(host.run("proc local() { print 1; } local;"));
    EXPECT_EQ(host.error("local;"), "Cannot find procedure \"local\".");
}

TEST(Language, GlobalsAreSetOnceAndSeenWhereDeclared)
{
    ScriptHost host;
    const std::string text = "global int $gCount = 5; global proc int next() { global int $gCount; return $gCount++; }";
    ASSERT_TRUE(host.run(text));
    EXPECT_EQ(host.eval("next();"), "5");
    ASSERT_TRUE(host.run(text));
    EXPECT_EQ(host.eval("next();"), "6");
    EXPECT_EQ(host.interpreter().global("gCount"), kernel::Value(7));
    EXPECT_EQ(host.interpreter().global("noSuch"), kernel::Value());
    EXPECT_EQ(host.error("global string $gCount;"),
              "line 1.15: Invalid redeclaration of variable \"$gCount\" as a different type.");

    host.interpreter().setGlobalString("gPlayBackSlider", "A|timeControl1");
    EXPECT_EQ(host.eval("$tempVar = $gPlayBackSlider"), "A|timeControl1");
    EXPECT_EQ(host.eval("global proc string f() { global string $gSelect; return $gSelect; } f;"),
              "selectSuperContext");
}

TEST(Language, CommandSyntaxAndFunctionSyntaxAreTheSameCall)
{
    // A command that shows the arguments it got, with their types.
    ScriptHost host;
    host.session.commands.add("show", [](const kernel::ValueList& args) -> kernel::Value {
        static const char* const kTypes[] = {"none", "i", "f", "s", "v"};
        std::string text;
        for (const kernel::Value& arg : args)
            text += std::string(text.empty() ? "" : " ") + kTypes[arg.index()] + ":" + kernel::toText(arg);
        return text;
    });
    host.run("string $list[] = {\"p\", \"q\"}; int $n = 4; string $o = \"ball\";");
    const ValueCase cases[] = {
        {"show -e -1 -x", "s:-e i:-1 s:-x"},
        {"show(\"-e\", -1, \"-x\")", "s:-e i:-1 s:-x"},
        {"show -move -3 1 5 ", "s:-move i:-3 i:1 i:5"},
        {"show -in -float 2 -default", "s:-in s:-float i:2 s:-default"},
        {"show -fvm \"\"", "s:-fvm s:"},
        {"show persp |a|b ns:c.d cv[0:3] ..", "s:persp s:|a|b s:ns:c.d s:cv[0:3] s:.."},
        {"show on 12film 1:20", "s:on s:12film s:1:20"},
        {"show -e -en \"my name\" 0 persp", "s:-e s:-en s:my name i:0 s:persp"},
        {"show $n $n -1 -$n (-$n) ($n -1)", "i:4 i:4 i:-1 i:-4 i:-4 i:3"},
        {"show ($o + \".tx\") -lock on", "s:ball.tx s:-lock s:on"},
        {"show ($n) -1 0", "i:4 i:-1 i:0"},
        {"show $list x $list[1] $list[$n - 4]", "s:p s:q s:x s:q s:p"},
        {"show($list, 1)", "s:p s:q i:1"},
        {"show {1, 2} <<1, 2.5, 3>>", "i:1 i:2 f:1 f:2.5 f:3"},
        {"show `ls top` `show 1`", "s:top s:i:1"},
        {"show `show (`show 1`)`", "s:s:i:1"},
        {"show cv[$n] a[$n:$n + 1].x[0]", "s:cv[4] s:a[4:5].x[0]"},
        {"show (\"a\" + `show (1)` + show(2)) b", "s:ai:1i:2 s:b"},
        {"show a // c\n b /* d */ ;", "s:a s:b"},
        {"show", ""},
        {"show()", ""},
        {"show \"-x\" -9", "s:-x i:-9"},
        {"show -_a-b -.5 1. 1.5E-3 -5cm", "s:-_a s:-b f:-0.5 f:1 f:0.0015 s:-5cm"},
        {"show 0xffffffff -0x10 2147483648 -2147483648", "i:-1 i:-16 f:2147483648 i:-2147483648"},
        {"show \"\\q\\\\ two\\\nlines\\\r\n.\" arm* ?b a/*b*/c", "s:q\\ twolines. s:arm* s:?b s:a s:c"},
        {"(show(1)) + \"!\";", "i:1!"},
        {"show(1) + \"!\";", "i:1!"},
        {"$r = `show`; $r + \".\"", "."},
        {"catch(`show 1`)", "0"},
        {"show $o.tx 2", "<error>"},
        {"show $n + 1", "<error>"},
        {"show float", "<error>"},
        {"show a, b", "<error>"},
        {"if (1) { show a }", "<error>"},
    };
    for (const ValueCase& c : cases)
        EXPECT_EQ(host.eval(c.text), c.value) << c.text;
}

TEST(Language, FunctionsOfTextsAndArrays)
{
    expectValues({
        {"string $o[]; tokenize(\"a.b..c\", \".\", $o);", "3"},
        {"string $o[]; tokenize \" x  y \" $o; $o;", "x y"},
        {"substring(\"hello\", 2, 4);", "ell"},
        {"substring(\"hello\", 4, 99);", "lo"},
        {"substitute(\"a+\", \"baaad\", \"X\");", "bXd"},
        {"substitute(\"[0-9]*$\", \"cam12\", \"\");", "cam"},
        {"match(\"[0-9]+\", \"abc123de\");", "123"},
        {"match(\"^.*/\", \"/a/b/c.ma\");", "/a/b/"},
        {"match(\"(ab)+c?\", \"zababcc\");", "ababc"},
        {"match(\"[^a-c]\\\\.x\", \"b.xd.x\");", "d.x"},
        {"match(\"q\", \"abc\");", ""},
        {"encodeString(\"a\\\"b\\\\c\\n\");", "a\\\"b\\\\c\\n"},
        {"gmatch(\"leftArm1\", \"left*?\");", "1"},
        {"gmatch(\"arm\", \"a?\");", "0"},
        {"startsWith(\"abc\", \"ab\") + endsWith(\"abc\", \"bc\") + endsWith(\"c\", \"bc\");", "2"},
        {"strip(\"  a b\\n\");", "a b"},
        {"toupper(\"aZ1\") + tolower(\"Az\");", "AZ1az"},
        {"strcmp(\"a\", \"b\");", "-1"},
        {"stringArrayToString({\"a\", \"b\"}, \", \");", "a, b"},
        {"stringToStringArray(\"a:b/c\", \":/\");", "a b c"},
        {"stringArrayContains(\"b\", {\"a\", \"b\"});", "1"},
        {"stringArrayCount(\"a\", {\"a\", \"b\", \"a\"});", "2"},
        {"stringArrayFind(\"a\", 1, {\"a\", \"b\", \"a\"});", "2"},
        {"stringArrayFind(\"a\", 5, {\"a\"});", "-1"},
        {"stringArrayRemove({\"a\"}, {\"a\", \"b\", \"a\"});", "b"},
        {"stringArrayRemoveDuplicates({\"a\", \"b\", \"a\"});", "a b"},
        {"stringArrayCatenate({\"a\"}, {\"b\"});", "a b"},
        {"string $a[] = {\"a\", \"c\"}; stringArrayInsertAtIndex(1, $a, \"b\"); $a;", "a b c"},
        {"string $a[] = {\"a\", \"c\"}; stringArrayRemoveAtIndex(2, $a);", "0"},
        {"string $a[] = {\"a\"}; appendStringArray($a, {\"b\", \"c\"}, 1); $a;", "a b"},
        {"string $a[] = {\"a\"}; clear $a; size($a);", "0"},
        {"size(\"\xC3\xA9\");", "2"},
        {"size(5);", "1"},
        {"max(1, 2) + abs(-3);", "5"},
        {"max(1, 2.5);", "2.5"},
        {"clamp(0, 1, 7);", "1"},
        {"floor(-1.5) + ceil(1.2) + trunc(-1.9);", "-1"},
        {"format(\"-s\", \"a\", \"-s\", \"b\", \"^2s-^1s-^3s^\");", "b-a-^"},
        {"format -s \"x\" \"<^1s>\";", "<x>"},
        {"exists \"print\";", "1"},
        {"exists \"noSuch\";", "0"},
        {"whatIs \"ls\";", "Command"},
        {"whatIs \"noSuch\";", "Unknown"},
        {"int $v[]; whatIs \"$v\";", "int[] variable"},
        {"global proc p() {} whatIs \"p\";", "Mel procedure entered interactively."},
        {"eval print 1; eval(\"1 +\", \"2\");", "3"},
        {"catch(`error \"bad\"`); getLastError;", "bad"},
    });
    expectErrors({
        {"print 1 2;", "Wrong number of arguments on call to print."},
        {"match(\"[a\", \"a\");", "Invalid regular expression: [a"},
        {"match(\"(a\", \"a\");", "Invalid regular expression: (a"},
        {"tokenize(\"a\", \"b\", {\"c\"});", "Cannot convert data of type string[] to type string[]."},
    });
}
