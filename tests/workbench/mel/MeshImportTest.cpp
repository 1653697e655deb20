#include "kernel/MeshData.h"
#include "workbench/mel/SceneFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const char kWedge[] = "# two faces that meet\no wedge\nv 0 0 0\nv 0.1 0 0\nv 1 1 -2.5\nv 0 1 0\nv 3 3 3\n"
                      "s 1\nf 1 2 3 4\nf 3 2 5\n";

class MeshImport : public SceneFolder {
protected:
    std::string writeText(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }
    std::shared_ptr<const kernel::MeshData> mesh(const std::string& name) const
    {
        const kernel::NodePtr node = session.scene.findOrNull(name);
        return node ? kernel::meshDataOf(*node) : nullptr;
    }
    void expectSame(const kernel::MeshData& wanted, const char* what) const
    {
        const auto held = mesh("wedgeShape");
        ASSERT_TRUE(held) << what;
        EXPECT_EQ(held->points, wanted.points) << what;
        EXPECT_EQ(held->edges, wanted.edges) << what;
        EXPECT_EQ(held->faces, wanted.faces) << what;
    }
    /// Whether a mesh takes this as its data, given as the words behind -type "mesh".
    bool takes(const std::string& words) { return run("setAttr probe.i -type \"mesh\" " + words); }
};

}  // namespace

TEST_F(MeshImport, MakesAMeshForEachObjectWithItsName)
{
    writeText("set.obj", kWedge + std::string("o lid.top\nf 1 2 3\n"));
    run("createNode transform -n wedge");
    EXPECT_EQ(eval("file -import -type \"OBJ\" -returnNewNodes \"" + path("set.obj") + "\""),
              "set_wedge wedgeShape lid_top lid_topShape");
    EXPECT_EQ(eval("nodeType wedgeShape"), "mesh");
    EXPECT_EQ(eval("listRelatives set_wedge"), "wedgeShape");
    writeText("Rock-2.OBJ", "v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3");
    EXPECT_EQ(eval("file -import -namespace \"far\" -rnn \"" + path("Rock-2.OBJ") + "\""),
              "far:Rock_2 far:Rock_Shape2");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MeshImport, ABrokenFileGivesOneMessageAndNothingElse)
{
    const std::string nodes = eval("ls");
    writeText("bad.obj", std::string(kWedge) + "f 1 2 9\nf 7 7 7\n");
    writeText("empty.obj", "# nothing\n");
    EXPECT_FALSE(file("-import", "bad.obj"));
    EXPECT_THAT(errors,
                ElementsAre("The file \"" + path("bad.obj") + "\" could not be read: line 11: there is no point 9."));
    EXPECT_THAT(error("file -import \"" + path("empty.obj") + "\""), HasSubstr("it holds no faces."));
    EXPECT_THAT(error("file -import \"" + path("absent.obj") + "\""), HasSubstr("File not found"));
    EXPECT_EQ(eval("ls"), nodes);
}

TEST_F(MeshImport, MeshesAreKeptInScenesOfBothForms)
{
    writeText("wedge.obj", kWedge);
    ASSERT_TRUE(file("-import", "wedge.obj"));
    const kernel::MeshData original = *mesh("wedgeShape");
    EXPECT_EQ(original.points.size(), 5u);
    for (const char* const name : {"wedge.ma", "wedge.mb"}) {
        ASSERT_TRUE(file("-rename", name));
        ASSERT_TRUE(run("file -save -type " + std::string(name[7] == 'a' ? "mayaAscii" : "mayaBinary")));
        ASSERT_TRUE(file("-force -open", name));
        expectSame(original, name);
    }
    EXPECT_THAT(content("wedge.ma"), HasSubstr("setAttr \".i\" -type \"mesh\""));
    EXPECT_THAT(errors, IsEmpty());
    ASSERT_TRUE(run("delete wedge"));
    ASSERT_TRUE(run("undo"));
    expectSame(original, "after undo");
    ASSERT_TRUE(run("duplicate -n copy wedge; delete wedge; rename `listRelatives copy` wedgeShape"));
    expectSame(original, "the duplicate");
}

TEST_F(MeshImport, ReadsPastWhatOtherProgramsKeepInMeshes)
{
    run("createNode mesh -n probe");
    ASSERT_TRUE(
        takes("\"v\" 3 0 0 0 1 0 0 0 1 0 \"vn\" 1 0 0 1 \"vt\" 2 0 0 1 1 "
              "\"e\" 3 0 1 \"hard\" 1 2 \"smooth\" 2 0 \"hard\" \"face\" \"l\" 3 0 1 2 \"lt\" 3 0 1 1 \"l\" 3 0 1 2"))
        << errors.back();
    EXPECT_EQ(mesh("probe")->faces.size(), 2u);
    EXPECT_TRUE(mesh("probe")->edges[1].isSmooth);
}

TEST_F(MeshImport, DataThatDoesNotHoldTogetherIsRefused)
{
    run("createNode mesh -n probe");
    const std::string points = "\"v\" 3 0 0 0 1 0 0 0 1 0 ";
    const std::string edges = "\"e\" 3 0 1 \"hard\" 1 2 \"hard\" 2 0 \"hard\" ";
    EXPECT_TRUE(takes(points + edges + "\"face\" \"l\" 3 0 1 2"));
    EXPECT_TRUE(takes(points + edges + "\"face\" \"l\" 3 -3 -2 -1"));
    const std::string bad[] = {
        "\"v\" 2000000000 0 0 0",
        "\"v\" -1",
        "\"v\" 1 0 0",
        "\"v\" 1 0 0 red",
        "\"w\" 1 0 0 0",
        points + "\"e\" 1 0 3 \"hard\"",
        points + "\"e\" 1 0 1 \"soft\"",
        points + "\"e\" 1.5e300 0 1 \"hard\"",
        points + edges + "\"face\" \"l\" 3 0 1 3",
        points + edges + "\"face\" \"l\" 3 0 1 -4",
        points + edges + "\"face\" \"l\" 3 0 1 -2147483648",
        points + edges + "\"face\" \"l\" 3 0 1 1",
        points + edges + "\"face\" \"l\" 2 0 -1",
        points + edges + "\"face\" \"l\" 999999999 0 1 2",
    };
    for (const std::string& words : bad) {
        EXPECT_FALSE(takes(words)) << words;
    }
    EXPECT_EQ(mesh("probe")->faces.size(), 1u) << "what was refused changed nothing";
}

TEST_F(MeshImport, BytesCutShortOrChangedAreRefusedOrWhole)
{
    writeText("wedge.obj", kWedge);
    ASSERT_TRUE(file("-import", "wedge.obj"));
    std::ostringstream out;
    ASSERT_TRUE(kernel::MeshData(*mesh("wedgeShape")).writeBinary(out));
    const std::string bytes = out.str();
    const auto reads = [](const std::string& text) {
        std::istringstream in(text);
        kernel::MeshData data;
        return data.readBinary(in, unsigned(text.size())) ? int(data.isWhole()) : -1;
    };
    EXPECT_EQ(reads(bytes), 1);
    EXPECT_EQ(reads(bytes + '\0'), -1);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_EQ(reads(bytes.substr(0, size)), -1) << "of " << size << " bytes";
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string changed = bytes;
        changed[at] = char(changed[at] ^ 0xff);
        EXPECT_NE(reads(changed), 0) << "byte " << at;
    }
}
