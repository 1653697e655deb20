#include "api/Handles.h"
#include "support/HostFixture.h"

#include <maya/MFileIO.h>
#include <maya/MFnDagNode.h>
#include <maya/MSelectionList.h>

#include <fstream>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Notes what the host is doing with files when a node of its type is made.
class Witness : public kernel::NodeProxy {
public:
    explicit Witness(QStringList& seen)
    {
        QString doing;
        doing += MFileIO::isOpeningFile() ? "open " : "";
        doing += MFileIO::isImportingFile() ? "import " : "";
        doing += MFileIO::isReferencingFile() ? "reference " : "";
        doing += kernel::Session::current().events.condition("readingFile") ? "read" : "";
        EXPECT_TRUE(MFileIO::isReadingFile());
        seen << doing;
    }
};

class MFileIOTest : public HostFixture {
protected:
    MFileIOTest()
    {
        kernel::NodeType type;
        type.name = "witness";
        type.base = session().nodeTypes.find("locator");
        type.role = kernel::NodeRole::Locator;
        type.id = 0x7101;
        type.makeProxy = [this](kernel::Node&) { return std::make_unique<Witness>(seen); };
        session().nodeTypes.add(type);
    }
    MString write(const char* name, const std::string& statements)
    {
        const std::string path = m_folder.filePath(name).toStdString();
        std::ofstream(path) << "//Maya ASCII 2019 scene\n" << statements;
        return MString(path.c_str());
    }
    MObject node(const char* name)
    {
        MSelectionList list;
        MObject object;
        EXPECT_TRUE(list.add(name)) << name;
        list.getDependNode(0, object);
        return object;
    }

    QStringList seen;

private:
    QTemporaryDir m_folder;
};

const char kNode[] = "createNode transform -n \"top\";\ncreateNode witness -n \"eye\" -p \"top\";\n";

TEST_F(MFileIOTest, SaysWhatIsGoingOnWhileFilesAreRead)
{
    const MString inner = write("inner.ma", kNode);
    const MString outer = write("outer.ma", std::string("file -r -ns \"in\" -rfn \"inRN\" \"inner.ma\";\n") + kNode);
    EXPECT_TRUE(MFileIO::importFile(inner));
    EXPECT_TRUE(MFileIO::reference(inner, false, false, "ref"));
    EXPECT_TRUE(MFileIO::open(outer, nullptr, true));
    EXPECT_THAT(seen, ElementsAre("import read", "reference read", "open reference read", "open read"));
    EXPECT_FALSE(MFileIO::isReadingFile());
    EXPECT_FALSE(session().events.condition("readingFile"));
}

TEST_F(MFileIOTest, ImportsAndReferencesUnderANamespace)
{
    const MString file = write("set.ma", kNode);
    EXPECT_TRUE(MFileIO::importFile(file, "mayaAscii", false, "own"));
    EXPECT_TRUE(MFileIO::reference(file, false, false, "ref"));
    EXPECT_FALSE(MFnDependencyNode(node("own:eye")).isFromReferencedFile());
    EXPECT_TRUE(MFnDependencyNode(node("ref:eye")).isFromReferencedFile());
    EXPECT_FALSE(MFileIO::importFile("/nowhere/at/all.ma"));
    EXPECT_FALSE(MFileIO::reference("/nowhere/at/all.ma"));
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("File not found"), HasSubstr("File not found")));
    EXPECT_TRUE(MFileIO::reference(file, true, false, "late"));
    EXPECT_TRUE(session().scene.find("late:eye").empty());
}

TEST_F(MFileIOTest, ReferencedNodesKeepNameAndPlace)
{
    EXPECT_TRUE(MFileIO::reference(write("set.ma", kNode), false, false, "ref"));
    run("createNode transform -n own");
    MObject theirs = node("ref:top");
    MStatus status;
    EXPECT_EQ(MFnDependencyNode(theirs).setName("mine", false, &status), "ref:top");
    EXPECT_FALSE(status);
    EXPECT_FALSE(MFnDagNode(node("own")).addChild(theirs));
    EXPECT_EQ(MFnDagNode(theirs).fullPathName(), "|ref:top");
}

}  // namespace
