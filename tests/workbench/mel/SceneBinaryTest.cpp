#include "kernel/ChunkReader.h"
#include "kernel/ChunkWriter.h"
#include "kernel/SceneBinaryReader.h"
#include "kernel/SceneFile.h"
#include "workbench/mel/ModuleType.h"
#include "workbench/mel/ScriptHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <istream>
#include <sstream>

using kernel::chunkId;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// A module's data: some bytes, whose first says how they are read.
class Blob : public kernel::CustomData {
public:
    std::string typeName() const override { return "blobData"; }
    std::uint32_t typeId() const override { return 77; }
    bool writeText(std::ostream& out) override { return bool(out << '"' << bytes << '"'); }
    bool readText(const kernel::Arguments& args, unsigned& next) override
    {
        bytes = kernel::toText(args.at(next++));
        return true;
    }
    bool writeBinary(std::ostream& out) override
    {
        out << std::hex << bytes;
        return bytes != "unwritable";
    }
    bool readBinary(std::istream& in, unsigned length) override
    {
        const char how = static_cast<char>(in.peek());
        bytes.resize(how == 'G' ? length + 1000 : how == 'L' ? 1 : length);
        in.read(&bytes[0], static_cast<std::streamsize>(bytes.size()));
        bytes.resize(static_cast<std::size_t>(in.gcount()));
        return how != 'F';
    }
    std::shared_ptr<kernel::CustomData> copy() const override { return std::make_shared<Blob>(*this); }

    std::string bytes;
};

void addModule(kernel::Session& session)
{
    const auto depth = std::make_shared<kernel::AttributeSpec>();
    depth->longName = "depth";
    depth->shortName = "dp";
    addModuleType(session,
                  {"blob", 0x11a887, "blobber", "content", "ct", "blobData", [] { return std::make_shared<Blob>(); }},
                  {depth});
}

/// A host with the module or without it.
struct SceneHost : ScriptHost {
    explicit SceneHost(bool withModule = true)
    {
        if (withModule)
            addModule(session);
        session.commands.add("loadPlugin", [withModule](const kernel::ValueList& args) -> kernel::Value {
            if (!withModule || kernel::toText(args.back()) != "blobber")
                throw kernel::CommandError("Plug-in, \"" + kernel::toText(args.back()) + "\", was not found.");
            return {};
        });
    }

    bool readText(const std::string& text)
    {
        kernel::SceneIntake intake(session, kernel::SceneIntake::Purpose::Open, "shot.ma");
        return session.script().executeScene(text, intake);
    }
    bool readBinary(const std::string& bytes)
    {
        kernel::SceneIntake intake(session, kernel::SceneIntake::Purpose::Open, "shot.mb");
        return kernel::SceneBinaryReader(session, bytes, intake).read();
    }
    std::string text()
    {
        std::ostringstream out;
        kernel::writeSceneText(session, out, "shot");
        return out.str();
    }
    std::string binary()
    {
        std::ostringstream out;
        kernel::writeSceneBinary(session, out, "shot");
        return out.str();
    }
    std::string blob(const std::string& node)
    {
        const kernel::NodePtr found = session.scene.findOne(node);
        const auto value = found->value(*found->attribute("ct"));
        const auto* data = std::get_if<std::shared_ptr<kernel::CustomData>>(&value);
        return data && *data ? static_cast<const Blob&>(**data).bytes : "nothing";
    }
};

/// A binary scene of the chunks that a function writes.
std::string container(const std::function<void(kernel::ChunkWriter&)>& write)
{
    std::ostringstream out;
    kernel::ChunkWriter writer(out);
    writer.beginGroup(kernel::kGroup, chunkId("Maya"));
    write(writer);
    writer.end();
    return out.str();
}

/// A transform with value chunks, between two others.
std::string sceneAround(const std::function<void(kernel::ChunkWriter&)>& writeValues)
{
    return container([&](kernel::ChunkWriter& writer) {
        for (const char* name : {"before", "middle", "after"}) {
            writer.beginGroup(kernel::kGroup, chunkId("XFRM"));
            writer.chunk(chunkId("CREA"), std::string(1, '\0') + name + '\0');
            if (name == std::string("middle"))
                writeValues(writer);
            writer.end();
        }
    });
}

/// The group of the scene whose first chunk holds a text.
std::string groupAbout(const std::string& scene, const std::string& text)
{
    kernel::ChunkReader top(scene);
    kernel::Chunk chunk;
    top.next(chunk);
    kernel::ChunkReader groups(chunk.body);
    while (groups.next(chunk)) {
        if (chunk.body.substr(0, 64).find(text) != std::string_view::npos)
            return std::string(chunk.whole);
    }
    return {};
}

std::string doubleBytes(unsigned char first, unsigned char second)
{
    return std::string{static_cast<char>(first), static_cast<char>(second)} + std::string(6, '\0');
}

std::string plug(const std::string& name, char flags = 0)
{
    return name + '\0' + flags;
}

// Of everything a scene can hold, something.
const char kRichScene[] =
    "file -rdi 1 -ns \"set\" -rfn \"setRN\" \"/shots/set.ma\";\n"
    "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"/shots/set.ma\";\n"
    "requires -nodeType \"blob\" -dataType \"blobData\" \"blobber\" \"1.4\";\n"
    "requires -nodeType \"mystery\" \"mysteryPlugin\" \"2.0\";\n"
    "currentUnit -l centimeter -a degree -t pal;\n"
    "fileInfo \"studio\" \"ours\\n\\\"1\\\"\";\n"
    "createNode transform -s -n \"persp\";\n"
    "\tsetAttr \".v\" yes;\n\tsetAttr \".t\" -type \"double3\" 0.1 0 -3e-7 ;\n"
    "createNode camera -s -n \"perspShape\" -p \"persp\";\n"
    "\tsetAttr -k on \".v\";\n\tsetAttr \".fl\" 34.999999999999993;\n\tsetAttr \".dgo\" 0.3;\n"
    "createNode transform -n \"a\";\n"
    "\trename -uid \"7C1A4A60-0000-4C0B-9F00-1D2E3F405162\";\n"
    "\tsetAttr \".ro\" 4;\n\tsetAttr \".r\" -type \"double3\" 0 0 90 ;\n\tsetAttr -l on -k off \".tx\" 5;\n"
    "\tsetAttr -l on \".s\" -type \"double3\" 2 1 1 ;\n\tsetAttr -k off -cb on \".v\" no;\n"
    "\tlockNode -l 1;\n\taddAttr -ln \"extra\" -sn \"ex\" -at \"double\";\n\tsetAttr \".ex\" 4.50;\n"
    "createNode transform -n \"a\" -p \"a\";\n"
    "createNode blob -n \"spot\" -p \"a|a\";\n"
    "\tsetAttr -l on \".ct\" -type \"blobData\" \"some bytes\";\n\tsetAttr \".dp\" -2;\n\tsetAttr -k off \".ove\";\n"
    "createNode mystery -n \"odd\" -p \"|a\";\n\tsetAttr \".x\" -type \"y\" 1 \"a;b\";\n"
    "createNode joint -n \"j\";\ncreateNode transform -n \"below\" -p \"j\";\n"
    "createNode \"strange type\" -s -n \"stranger\";\n"
    "createNode script -n \"notes\";\n"
    "\tsetAttr \".b\" -type \"string\" (\n\t\t\"one\\n\"\n\t\t+ \"t\\\\wo \\\"3\\\"\\t\\r\303\274\");\n"
    "select -ne :time1;\n\tsetAttr \".o\" 12.5;\n"
    "select -ne :defaultRenderGlobals;\n\tsetAttr \".ef\" 77;\n\tsetAttr \".bfs\" 0.1;\n\taddAttr -ln \"more\";\n"
    "select -ne :renderPartition;\n\tsetAttr -s 2 \".st\";\n"
    "connectAttr \"a.tx\" \"below.tx\" -na;\n";

}  // namespace

TEST(SceneBinary, TextToBinaryToTextLosesNothing)
{
    SceneHost first;
    ASSERT_TRUE(first.readText(kRichScene)) << testing::PrintToString(first.errors);
    first.session.scene.setAnimationRange({-5, 500});
    first.session.scene.setPlaybackRange({3, 40});
    const std::string path = testing::TempDir() + "sceneBinary.mb";
    kernel::saveScene(first.session, path);
    const std::string text = first.text();
    for (const char* part :
         {"\"some bytes\"", "setAttr \".ex\" 4.50;", "lockNode", "mysteryPlugin", "file -rdi", "-min 3 -max 40",
          "-t pal", "connectAttr", "\\\"3\\\"", "createNode joint", "\"strange type\" -s", ":renderPartition"})
        EXPECT_THAT(text, HasSubstr(part));

    SceneHost second;
    kernel::openScene(second.session, path);
    std::remove(path.c_str());
    EXPECT_THAT(second.errors, IsEmpty());
    EXPECT_EQ(second.text(), text);
    EXPECT_EQ(second.binary(), first.binary());
    EXPECT_EQ(second.eval("ls -sl; undoInfo -q"), "0") << "nothing is recorded";
    EXPECT_EQ(second.eval("file -q -type"), "mayaBinary");
}

TEST(SceneBinary, NodesOfMissingModulesAreWrittenBackByteForByte)
{
    SceneHost with;
    ASSERT_TRUE(with.run("createNode blob -n spot; setAttr spot.ct -type blobData \"abc\"; setAttr spot.dp 3;"
                         "createNode transform -n last"));
    const std::string scene = with.binary();
    SceneHost without(false);
    EXPECT_TRUE(without.readBinary(scene));
    EXPECT_THAT(without.errors, IsEmpty());
    EXPECT_EQ(without.eval("nodeType spot"), "blob");
    EXPECT_EQ(without.eval("objExists last"), "1");
    EXPECT_EQ(groupAbout(without.binary(), "spot"), groupAbout(scene, "spot"));

    ASSERT_TRUE(without.run("rename spot stain"));
    SceneHost again;
    EXPECT_TRUE(again.readBinary(without.binary()));
    EXPECT_EQ(again.blob("stain"), "abc");
    EXPECT_EQ(again.eval("getAttr stain.dp"), "3");

    ASSERT_TRUE(without.run("duplicate -name copy `listRelatives -p stain`"));
    SceneHost third;
    EXPECT_TRUE(third.readBinary(without.binary()));
    EXPECT_EQ(third.blob("copy|stain"), "abc");
}

TEST(SceneBinary, WhatTextCannotHoldIsNotSavedAsText)
{
    const std::string path = testing::TempDir() + "sceneBinary.ma";
    std::ofstream(path) << "old";
    SceneHost with;
    with.run("createNode blob -n spot; setAttr spot.ct -type blobData \"abc\"");
    SceneHost without(false);
    without.readBinary(with.binary());
    EXPECT_EQ(without.error("file -rename \"" + path + "\"; file -save -type mayaAscii"),
              "The scene cannot be saved as mayaAscii: the data of 'spot' (of type blob) is known in binary form only, "
              "as its plug-in is not loaded. Save it as mayaBinary.");
    std::ifstream in(path);
    std::string content;
    in >> content;
    EXPECT_EQ(content, "old");
    EXPECT_EQ(without.eval("file -q -type"), "mayaAscii") << "as the name says";
    without.session.scene.findOne("spot")->referenced = true;
    EXPECT_EQ(without.eval("file -save -type mayaAscii"), path) << "a referenced file keeps its own";
    without.session.scene.findOne("spot")->referenced = false;
    EXPECT_EQ(without.eval("delete spot; file -save -type mayaAscii"), path);
    std::remove(path.c_str());
}

TEST(SceneBinary, ANodeKeptAsTextGetsItsDataBackWithItsModule)
{
    SceneHost without(false);
    ASSERT_TRUE(without.readText("createNode transform -n \"t\";\ncreateNode blob -n \"spot\" -p \"t\";\n"
                                 "\tsetAttr \".tmp\" yes;\n\tsetAttr \".ct\" -type \"blobData\" \"abc\";\n"));
    SceneHost with;
    EXPECT_TRUE(with.readBinary(without.binary()));
    EXPECT_EQ(with.eval("nodeType spot"), "blob");
    EXPECT_EQ(with.eval("getAttr spot.tmp"), "1");
    EXPECT_EQ(with.blob("spot"), "abc");
}

TEST(SceneBinary, ModuleDataReadsWithinItsChunk)
{
    for (const char* bytes : {"all of it", "Greedy", "Lazy", "Failing", ""}) {
        SceneHost first;
        first.run("createNode blob -n spot; setAttr spot.dp 3; createNode transform -n after");
        const kernel::NodePtr spot = first.session.scene.findOne("spot");
        const auto blob = std::make_shared<Blob>();
        blob->bytes = bytes;
        spot->setValue(*spot->attribute("ct"), std::shared_ptr<kernel::CustomData>(blob));
        SceneHost second;
        const bool isGood = bytes[0] != 'F';
        EXPECT_EQ(second.readBinary(first.binary()), isGood) << bytes;
        EXPECT_EQ(second.errors, isGood ? std::vector<std::string>()
                                        : std::vector<std::string>{"file: shot.mb: Error reading data of "
                                                                   "'spot.content'."});
        EXPECT_EQ(second.blob("spot"), !isGood ? "nothing" : bytes[0] == 'L' ? "L" : bytes);
        EXPECT_EQ(second.eval("getAttr spot.dp"), "3") << bytes;
        EXPECT_EQ(second.eval("objExists after"), "1") << bytes;
    }
    SceneHost host;
    host.run("createNode blob -n spot; setAttr spot.ct -type blobData unwritable");
    EXPECT_THROW(host.binary(), kernel::CommandError);
}

TEST(SceneBinary, EachFaultIsReportedAndTheRestIsRead)
{
    using Writer = kernel::ChunkWriter;
    const struct {
        const char* what;
        std::function<void(Writer&)> write;
        const char* error;  ///< null: none
    } cases[] = {
        {"a chunk nobody knows", [](Writer& w) { w.chunk(chunkId("ZZZZ"), "anything"); }, nullptr},
        {"a group in a node",
         [](Writer& w) {
             w.beginGroup(kernel::kGroup, chunkId("DBLE"));
             w.end();
         },
         nullptr},
        {"half a number", [](Writer& w) { w.chunk(chunkId("DBLE"), plug("tx") + "1234"); },
         "Error reading data of 'middle.translateX'."},
        {"several numbers for one", [](Writer& w) { w.chunk(chunkId("DBLE"), plug("tx") + std::string(16, '\0')); },
         "Error reading data of 'middle.translateX'."},
        {"three numbers for one", [](Writer& w) { w.chunk(chunkId("DBL3"), plug("tx") + std::string(24, '\0')); },
         "Error reading data of 'middle.translateX'."},
        {"no number", [](Writer& w) { w.chunk(chunkId("DBLE"), plug("tx") + doubleBytes(0x7f, 0xf8)); },
         "Error reading data of 'middle.translateX'."},
        {"a text for a number", [](Writer& w) { w.chunk(chunkId("STR "), plug("tx") + "1"); },
         "Error reading data of 'middle.translateX'."},
        {"a number out of range", [](Writer& w) { w.chunk(chunkId("DBLE"), plug("uoc") + doubleBytes(0x40, 0x59)); },
         "Cannot set the attribute 'middle.useObjectColor' past its maximum value of 2."},
        {"an attribute that is not there", [](Writer& w) { w.chunk(chunkId("DBLE"), plug("no") + std::string(8, 0)); },
         "No object matches name: middle.no"},
        {"an empty chunk", [](Writer& w) { w.chunk(chunkId("DBLE"), ""); }, "No object matches name: middle."},
        {"a chunk of zeros", [](Writer& w) { w.stream() << std::string(32, '\0'); },
         "The file is damaged: something in 'middle' is left out."},
        {"a chunk larger than its group", [](Writer& w) { w.copy("DBLE" + std::string(11, '\0') + "\x7fshort"); },
         "The file is damaged: something in 'middle' is left out."},
        {"statements that fail", [](Writer& w) { w.chunk(chunkId("STMT"), "setAttr \".no\" 1;"); },
         "setAttr: No object matches name: middle.no"},
        {"a node without a name",
         [](Writer& w) {
             w.end();
             w.beginGroup(kernel::kGroup, chunkId("XFRM"));
         },
         "A node without a name is left out."},
    };
    for (const auto& c : cases) {
        SceneHost host;
        EXPECT_EQ(host.readBinary(sceneAround(c.write)), c.error == nullptr) << c.what;
        EXPECT_EQ(host.eval("ls before middle after"), "before middle after") << c.what;
        if (c.error) {
            ASSERT_EQ(host.errors.size(), 1u) << c.what;
            EXPECT_EQ(host.errors[0], std::string("file: shot.mb: ") + c.error) << c.what;
        } else {
            EXPECT_THAT(host.errors, IsEmpty()) << c.what;
        }
    }
}

TEST(SceneBinary, FlagsAndCompoundsOfOtherWritersAreRead)
{
    SceneHost host;
    const std::string single("\x3f\x80\0\0", 4);
    EXPECT_TRUE(host.readBinary(sceneAround([&](kernel::ChunkWriter& writer) {
        writer.chunk(chunkId("FLT3"), plug("t", 1 | 2) + single + single + single);
        writer.chunk(chunkId("LNG3"), plug("s") + std::string("\0\0\0\2\xff\xff\xff\xff\0\0\1\0", 12));
        writer.chunk(chunkId("CMPD"), plug("r", 1));
    })));
    EXPECT_EQ(host.eval("getAttr middle.t"), "1 1 1");
    EXPECT_EQ(host.eval("getAttr -l middle.t"), "1");
    EXPECT_EQ(host.eval("getAttr middle.s"), "2 -1 256");
    EXPECT_EQ(host.eval("getAttr -k middle.r"), "0");
}

TEST(SceneBinary, NoDamageIsMoreThanAnError)
{
    SceneHost writer;
    ASSERT_TRUE(writer.readText(kRichScene));
    const std::string whole = writer.binary();
    for (std::size_t length = 0; length + 8 < whole.size(); length += 7) {
        SceneHost host;
        EXPECT_FALSE(host.readBinary(whole.substr(0, length))) << length;
        EXPECT_FALSE(host.errors.empty()) << length;
    }
    for (std::size_t at = 0; at < whole.size(); at += 11) {
        for (const char byte : {'\0', '\xff'}) {
            std::string damaged = whole;
            damaged[at] = byte;
            SceneHost host;
            host.readBinary(damaged);
            SceneHost again;
            again.readBinary(host.binary());
            EXPECT_GE(again.session.scene.nodes().size(), host.session.scene.nodes().size()) << "byte " << at;
        }
    }
}

TEST(SceneBinary, WhatWasWholeBeforeACutIsThere)
{
    SceneHost writer;
    writer.run("createNode transform -n a; setAttr a.tx 3; createNode transform -n b; setAttr b.tx 4");
    const std::string whole = writer.binary();
    SceneHost host;
    EXPECT_FALSE(host.readBinary(whole.substr(0, whole.find("DBL3", whole.find(std::string("b\0", 2))))));
    EXPECT_EQ(host.eval("getAttr a.tx"), "3");
    EXPECT_THAT(host.errors, testing::Contains("file: shot.mb: The file ends in the middle of the scene."));
}

TEST(SceneBinary, GroupsNestedWithoutEndAreSkipped)
{
    std::string nested;
    for (int i = 0; i < 10000; ++i)
        nested += "FOR8" + std::string(8, '\0') + std::string("\0\x10\0\0", 4) + "XFRM";
    SceneHost host;
    EXPECT_FALSE(host.readBinary(container([&](kernel::ChunkWriter& writer) { writer.copy(nested); })));
    EXPECT_THAT(host.errors, ElementsAre(HasSubstr("A node without a name"), HasSubstr("damaged")));
}

TEST(SceneBinary, OtherContainersAreNoScenes)
{
    SceneHost host;
    EXPECT_TRUE(kernel::isBinaryScene(host.binary()));
    EXPECT_FALSE(host.readBinary("")) << "nor does the reader take them";
    EXPECT_THAT(host.errors, ElementsAre("file: shot.mb: The file is damaged: it holds no scene."));
    for (const char* start : {"", "FOR8", "FOR8............Text", "FOR4....Maya............", "//Maya ASCII"})
        EXPECT_FALSE(kernel::isBinaryScene(start)) << start;
}
