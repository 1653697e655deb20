#include "kernel/References.h"
#include "kernel/SceneFile.h"
#include "workbench/mel/SceneFolder.h"

#include <stdexcept>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class ReferencedFile : public SceneFolder {
protected:
    ReferencedFile()
    {
        write("set.ma", "createNode transform -s -n \"persp\";\n\tsetAttr \".tx\" 99;\n"
                        "createNode transform -n \"house\";\n\tsetAttr \".tx\" 5;\n"
                        "createNode locator -n \"houseShape\" -p \"house\";\n");
    }
    /// A new scene, then the one of that name.
    void reopen(const std::string& name) { ASSERT_TRUE(file("-force -open", name)) << errors.back(); }
    std::vector<std::string> linesWith(const std::string& name, const std::string& part) const
    {
        std::vector<std::string> found;
        std::istringstream text(content(name));
        for (std::string line; std::getline(text, line);) {
            if (line.find(part) != std::string::npos)
                found.push_back(line);
        }
        return found;
    }
};

}  // namespace

TEST_F(ReferencedFile, ShowsItsNodesUnderANamespace)
{
    session.scene.setModified(false);
    EXPECT_EQ(eval("file -reference -namespace \"set\" \"" + path("set.ma") + "\""), path("set.ma"));
    EXPECT_EQ(eval("ls -referencedNodes"), "set:house set:houseShape");
    EXPECT_EQ(eval("ls -references"), "setRN");
    EXPECT_EQ(eval("getAttr set:house.tx"), "5");
    EXPECT_EQ(eval("getAttr persp.tx"), "28");
    EXPECT_EQ(eval("file -q -reference"), path("set.ma"));
    EXPECT_EQ(eval("file -q -list"), "untitled " + path("set.ma"));
    EXPECT_EQ(eval("namespace -exists set"), "1");
    EXPECT_TRUE(session.scene.isModified());
    // Once more: a copy with a number, under a namespace of its own.
    EXPECT_EQ(eval("file -reference -namespace \"set\" \"" + path("set.ma") + "\""), path("set.ma") + "{1}");
    EXPECT_EQ(eval("getAttr set1:house.tx"), "5");
    EXPECT_EQ(eval("file -reference \"" + path("set.ma") + "\""), path("set.ma") + "{2}");
    EXPECT_EQ(eval("getAttr set2:house.tx"), "5") << "without a namespace, the file's name";
}

TEST_F(ReferencedFile, ItsNodesCannotBeTakenApart)
{
    file("-reference -namespace \"set\"", "set.ma");
    run("createNode transform -n own; createNode transform -n below -p \"set:house\"");
    EXPECT_EQ(error("delete set:house"), "Cannot delete the read only node 'set:house'.");
    EXPECT_EQ(error("delete setRN"), "Cannot delete the read only node 'setRN'.");
    EXPECT_EQ(error("rename set:house mine"), "Cannot rename a read only node.");
    EXPECT_EQ(error("parent set:house own"), "Cannot parent a read only node.");
    EXPECT_TRUE(run("setAttr set:house.tx 6; parent below own"));
}

TEST_F(ReferencedFile, IsWrittenAsAReferenceWithTheChangesOfItsNodes)
{
    file("-reference -namespace \"set\"", "set.ma");
    run("setAttr set:house.ty 2; setAttr set:house.v off; setAttr -l on set:houseShape.lpx");
    run("setAttr set:house.tz 1");
    run("undo");
    run("createNode transform -n below -p \"set:house\"");
    saveAs("shot.ma");
    const std::string statement =
        " -ns \"set\" -rfn \"setRN\" -op \"v=0;\" -typ \"mayaAscii\" \"" + path("set.ma") + "\";";
    EXPECT_THAT(linesWith("shot.ma", "file -"), ElementsAre("file -rdi 1" + statement, "file -r" + statement));
    EXPECT_THAT(content("shot.ma"), HasSubstr("\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t\"setRN\"\n"
                                              "\t\t\"setRN\" 3\n"
                                              "\t\t2 \"|set:house\" \"visibility\" \" no\"\n"
                                              "\t\t2 \"|set:house\" \"translate\" \" -type \\\"double3\\\" 5 2 0\"\n"
                                              "\t\t2 \"|set:house|set:houseShape\" \"localPositionX\" \" -l on 0\";\n"
                                              "\tlockNode -l 1 ;\n"));
    EXPECT_THAT(content("shot.ma"), Not(HasSubstr("createNode locator")));

    reopen("shot.ma");
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr set:house.t"), "5 2 0");
    EXPECT_EQ(eval("getAttr set:house.v"), "0");
    EXPECT_EQ(eval("getAttr -lock set:houseShape.lpx"), "1");
    EXPECT_EQ(eval("listRelatives -parent below"), "set:house");
    EXPECT_EQ(eval("ls -referencedNodes"), "set:house set:houseShape");
    const std::string before = content("shot.ma");
    saveAs("shot.ma");
    EXPECT_EQ(content("shot.ma"), before);
}

TEST_F(ReferencedFile, ChangesThatCannotBeMadeAreWrittenBackAsTheyWere)
{
    write("shot.ma", "file -r -ns \"set\" -rfn \"setRN\" -dns true \"set.ma\";\n"
                     "createNode reference -n \"setRN\";\n"
                     "\tsetAttr -s 4 \".phl\";\n"
                     "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t\"setRN\"\n\t\t\"setRN\" 5\n"
                     "\t\t0 \"|set:house\" \"|own\" \"-s -r \"\n"
                     "\t\t2 \"|set:house\" \"translateX\" \" 8\"\n"
                     "\t\t2 \"|set:gone\" \"translateX\" \" 9\"\n"
                     "\t\t5 4 \"setRN\" \"|set:house.ty\" \"setRN.placeHolderList[1]\" \"\"\n"
                     "\t\t2 \"|set:house\" \"noSuch\" \" 1\";\n"
                     "\tlockNode -l 1 ;\n");
    reopen("shot.ma");
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr set:house.tx"), "8");
    saveAs("again.ma");
    const std::string written = content("again.ma");
    EXPECT_THAT(written, HasSubstr("\"setRN\" 5\n\t\t0 \"|set:house\" \"|own\" \"-s -r \"\n"
                                   "\t\t2 \"|set:gone\" \"translateX\" \" 9\"\n"
                                   "\t\t2 \"|set:house\" \"noSuch\" \" 1\"\n"
                                   "\t\t2 \"|set:house\" \"translate\" \" -type \\\"double3\\\" 8 0 0\"\n"
                                   "\t\t5 4 \"setRN\" \"|set:house.ty\" \"setRN.placeHolderList[1]\" \"\";\n"));
    EXPECT_THAT(written, HasSubstr("\tsetAttr -s 4 \".phl\";\n\tlockNode -l 1 ;\n"));
    EXPECT_THAT(linesWith("again.ma", "file -r -"), ElementsAre("file -r -ns \"set\" -rfn \"setRN\" -dns \"true\" "
                                                                "\"set.ma\";"));
}

TEST_F(ReferencedFile, AChangeThatIsRefusedIsWrittenBack)
{
    write("fixed.ma", "createNode transform -n \"house\";\n\tsetAttr -l on \".tx\" 5;\n");
    write("shot.ma", "file -r -ns \"set\" -rfn \"setRN\" \"fixed.ma\";\ncreateNode reference -n \"setRN\";\n"
                     "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"setRN\" \"setRN\" 2\n"
                     "\t\t2 \"|set:house\" \"translateX\" \" 8\"\n"
                     "\t\t2 \"|set:house\" \"translateZ\" \" 7\";\n");
    std::string name = "shot.ma";
    for (const char* next : {"again.ma", "third.ma"}) {
        errors.clear();
        reopen(name);
        EXPECT_THAT(errors, ElementsAre(HasSubstr("'set:house.translateX' is locked")));
        EXPECT_EQ(eval("getAttr set:house.t"), "5 0 7");
        saveAs(name = next);
        EXPECT_THAT(content(name), HasSubstr("\"setRN\" 2\n\t\t2 \"|set:house\" \"translateX\" \" 8\"\n"
                                             "\t\t2 \"|set:house\" \"translateZ\" \" 7\";"));
    }
}

TEST_F(ReferencedFile, NestedReferencesJoinTheirNamespaces)
{
    write("props/chair.ma", "createNode transform -n \"seat\";\n");
    write("room.ma", "file -rdi 1 -ns \"chair\" -rfn \"chairRN\" \"props/chair.ma\";\n"
                     "file -r -ns \"chair\" -rfn \"chairRN\" \"props/chair.ma\";\n"
                     "createNode reference -n \"chairRN\";\n"
                     "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"chairRN\" \"chairRN\" 1\n"
                     "\t\t2 \"|chair:seat\" \"translateX\" \" 3\";\n"
                     "createNode transform -n \"cushion\" -p \"chair:seat\";\n");
    ASSERT_TRUE(file("-reference -namespace \"room\"", "room.ma"));
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr room:chair:seat.tx"), "3");
    EXPECT_EQ(eval("listRelatives -parent room:cushion"), "room:chair:seat");
    EXPECT_EQ(eval("ls -references"), "roomRN room:chairRN");
    EXPECT_EQ(eval("file -q -reference"), path("room.ma"));
    EXPECT_EQ(error("file -removeReference -referenceNode \"room:chairRN\""),
              "Only the file that makes a reference can remove it: " + path("props/chair.ma"));
    errors.clear();
    saveAs("shot.ma");
    EXPECT_THAT(content("shot.ma"), Not(HasSubstr(".ed"))) << "what room.ma changes in it is not the scene's change";
    run("setAttr room:chair:seat.tz 4");
    saveAs("shot.ma");
    EXPECT_THAT(linesWith("shot.ma", "file -rdi"),
                ElementsAre(HasSubstr("-rdi 1 -ns \"room\""), HasSubstr("-rdi 2 -ns \"chair\" -rfn \"room:chairRN\"")));
    EXPECT_THAT(content("shot.ma"),
                HasSubstr("\"roomRN\"\n\t\t\"room:chairRN\" 1\n"
                          "\t\t2 \"|room:chair:seat\" \"translate\" \" -type \\\"double3\\\" 3 0 4\";"));
    reopen("shot.ma");
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr room:chair:seat.t"), "3 0 4");

    // Imported, the same file brings a reference of the scene's own, whose namespace may be taken.
    run("file -force -new; createNode transform -n \"chair:leg\"");
    ASSERT_TRUE(file("-import", "room.ma"));
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(eval("getAttr chair1:seat.tx"), "3");
    EXPECT_EQ(eval("listRelatives -parent cushion"), "chair1:seat");
    EXPECT_EQ(eval("file -q -reference"), path("props/chair.ma"));
}

TEST_F(ReferencedFile, AFileInsideItselfIsRefused)
{
    write("a.ma", "file -r -ns \"b\" -rfn \"bRN\" \"b.ma\";\ncreateNode transform -n \"inA\";\n");
    write("b.ma", "file -r -ns \"a\" -rfn \"aRN\" \"a.ma\";\ncreateNode transform -n \"inB\";\n");
    ASSERT_TRUE(file("-open", "a.ma"));
    EXPECT_THAT(errors, ElementsAre(HasSubstr("b.ma line 2: The file \"" + path("a.ma")
                                              + "\" cannot be referenced inside itself.")));
    EXPECT_EQ(eval("ls -references"), "bRN");
    EXPECT_EQ(eval("ls -referencedNodes"), "b:inB") << "the rest is there";
    EXPECT_THAT(error("file -reference \"" + path("a.ma") + "\""), HasSubstr("cannot be referenced inside itself"));
    EXPECT_EQ(eval("file -q -reference"), path("b.ma"));

    run("file -force -new");
    errors.clear();
    ASSERT_TRUE(file("-reference", "a.ma")) << "two files inside one another, neither of them the scene";
    EXPECT_THAT(errors, ElementsAre(HasSubstr("b.ma line 2: The file \"" + path("a.ma"))));
    EXPECT_EQ(eval("ls -referencedNodes"), "a:bRN a:b:inB a:inA");
}

TEST_F(ReferencedFile, AFileInsideItselfByWayOfALinkIsRefused)
{
    std::filesystem::create_directory_symlink(".", path("link"));
    write("a.ma", "file -r -ns \"a\" -rfn \"aRN\" \"link/a.ma\";\n");
    write("b.ma", "file -r -ns \"b\" -rfn \"bRN\" \"link/c.ma\";\n");
    write("c.ma", "file -r -ns \"c\" -rfn \"cRN\" \"link/b.ma\";\n");
    ASSERT_TRUE(file("-open", "a.ma"));
    EXPECT_THAT(errors, ElementsAre(HasSubstr("link/a.ma\" cannot be referenced inside itself.")));
    run("file -force -new");
    errors.clear();
    ASSERT_TRUE(file("-reference", "b.ma"));
    EXPECT_THAT(errors, ElementsAre(HasSubstr("link/link/b.ma\" cannot be referenced inside itself.")));
}

TEST_F(ReferencedFile, AFileThatLiesTooDeepInOthersIsRefused)
{
    constexpr int kFiles = 150;
    for (int i = 0; i < kFiles; ++i)
        write(std::to_string(i) + ".ma", "file -r -ns \"n\" -rfn \"nRN\" \"" + std::to_string(i + 1) + ".ma\";\n");
    write(std::to_string(kFiles) + ".ma", "createNode transform -n \"last\";\n");
    ASSERT_TRUE(file("-open", "0.ma"));
    EXPECT_THAT(errors, ElementsAre(HasSubstr("100.ma line 2: The file \"" + path("101.ma")
                                              + "\" lies more than 100 references deep.")));
    EXPECT_EQ(eval("size(`ls -references`)"), "100") << "the rest is there";
}

TEST_F(ReferencedFile, IsNotWrittenOver)
{
    write("room.ma", "file -r -ns \"set\" -rfn \"setRN\" \"set.ma\";\n");
    file("-reference", "room.ma");
    const std::string before = content("set.ma");
    std::filesystem::create_symlink("set.ma", path("link.ma"));
    run("createNode transform -n own");
    for (const char* name : {"room.ma", "set.ma", "link.ma"}) {
        ASSERT_TRUE(file("-rename", name));
        EXPECT_EQ(error("file -save -type \"mayaAscii\""),
                  "The file \"" + path(name) + "\" is referenced by the scene, which cannot take its place.");
    }
    EXPECT_EQ(content("set.ma"), before);
    EXPECT_TRUE(session.scene.isModified());
    saveAs("shot.ma");
    saveAs("shot.ma");
}

TEST_F(ReferencedFile, LeavesNothingBehindWhenItsReadingBreaksOff)
{
    write("room.ma", "file -r -ns \"set\" -rfn \"setRN\" \"set.ma\";\ncreateNode transform -n \"table\";\n"
                     "requires \"broken\" \"1.0\";\n");
    const auto before = session.scene.nodes();
    session.commands.add("loadPlugin",
                         [](const kernel::ValueList&) -> kernel::Value { throw std::runtime_error("broken module"); });
    kernel::ReferenceRequest request;
    request.file = path("room.ma");
    EXPECT_THROW(kernel::createReference(session, request), std::runtime_error);
    EXPECT_EQ(session.scene.nodes(), before);
    EXPECT_THAT(session.scene.references, IsEmpty());
}

TEST_F(ReferencedFile, CanLieInTheRootNamespace)
{
    EXPECT_EQ(eval("file -reference -namespace \":\" -returnNewNodes \"" + path("set.ma") + "\""), "house houseShape");
    EXPECT_EQ(eval("ls -references"), "setRN");
    EXPECT_EQ(eval("namespace -exists \"_\""), "0");
    saveAs("shot.ma");
    const auto statement = HasSubstr(" -ns \":\" -rfn \"setRN\" ");
    EXPECT_THAT(linesWith("shot.ma", "file -r"), ElementsAre(statement, statement));
}

TEST_F(ReferencedFile, ItsNamesInTheRootMustBeFree)
{
    const std::string message =
        "The file \"" + path("set.ma") + "\" has names that the scene has already; give it a namespace.";
    run("createNode transform -n house");
    EXPECT_EQ(error("file -reference -namespace \":\" \"" + path("set.ma") + "\""), message);
    EXPECT_EQ(eval("ls \"house*\""), "house");
    EXPECT_THAT(session.scene.references, IsEmpty());

    write("shot.ma", "file -r -ns \":\" -dr 1 -rfn \"setRN\" \"set.ma\";\ncreateNode transform -n \"house\";\n");
    reopen("shot.ma");
    EXPECT_EQ(error("file -loadReference \"setRN\""), message);
    saveAs("again.ma");
    EXPECT_THAT(linesWith("again.ma", "file -r "), ElementsAre(HasSubstr("-ns \":\" -dr 1")));

    write("twice.ma", "file -r -ns \":\" -rfn \"aRN\" \"set.ma\";\nfile -r -ns \":\" -rfn \"bRN\" \"set.ma\";\n");
    warnings.clear();
    reopen("twice.ma");
    EXPECT_THAT(warnings, ElementsAre(HasSubstr(message)));
    EXPECT_EQ(eval("ls -references"), "aRN bRN");
    EXPECT_EQ(eval("ls -referencedNodes"), "house houseShape");
}

TEST_F(ReferencedFile, AMissingFileKeepsItsReferenceAndChanges)
{
    const std::string shot = "file -r -ns \"gone\" -rfn \"goneRN\" -op \"v=0;\" \"gone.ma\";\n"
                             "createNode reference -n \"goneRN\";\n"
                             "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t\"goneRN\"\n\t\t\"goneRN\" 1\n"
                             "\t\t2 \"|gone:house\" \"translateX\" \" 8\";\n";
    write("shot.ma", shot);
    reopen("shot.ma");
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("shot.ma line 2: File not found: " + path("gone.ma"))));
    saveAs("again.ma");
    EXPECT_THAT(content("again.ma"), HasSubstr("file -r -ns \"gone\" -rfn \"goneRN\" -op \"v=0;\" \"gone.ma\";\n"));
    EXPECT_THAT(content("again.ma"), HasSubstr("\t\t\"goneRN\" 1\n\t\t2 \"|gone:house\" \"translateX\" \" 8\";\n"));
    EXPECT_EQ(error("file -reference \"" + path("gone.ma") + "\""), "File not found: " + path("gone.ma"));
    EXPECT_EQ(eval("ls -references"), "goneRN");
}

TEST_F(ReferencedFile, ADeferredReferenceStaysUnreadUntilLoaded)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\ncreateNode reference -n \"setRN\";\n"
                     "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"setRN\" \"setRN\" 1\n"
                     "\t\t2 \"|set:house\" \"translateX\" \" 8\";\n");
    reopen("shot.ma");
    EXPECT_EQ(eval("objExists set:house"), "0");
    saveAs("again.ma");
    EXPECT_THAT(content("again.ma"), HasSubstr("file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\n"));
    EXPECT_THAT(content("again.ma"), HasSubstr("2 \"|set:house\" \"translateX\" \" 8\""));
    ASSERT_TRUE(run("file -loadReference \"setRN\""));
    EXPECT_EQ(eval("getAttr set:house.tx"), "8");
    EXPECT_EQ(eval("file -q -modified"), "1");
}

TEST_F(ReferencedFile, ChangesThatAreWrongWhenLoadedAreReportedWithoutALine)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\ncreateNode reference -n \"setRN\";\n"
                     "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"setRN\" \"setRN\" 1\n"
                     "\t\t2 \"|set:house\" \"translateX\" \" word\";\n");
    reopen("shot.ma");
    EXPECT_TRUE(run("file -loadReference \"setRN\""));
    EXPECT_THAT(errors,
                ElementsAre("file: " + path("shot.ma") + ": setAttr: Error reading data element number 1: word"));
}

TEST_F(ReferencedFile, ANodeBelowOneThatIsNotLoadedKeepsItsParent)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\ncreateNode reference -n \"setRN\";\n"
                     "createNode transform -n \"below\" -p \"set:house\";\n"
                     "createNode locator -n \"mark\" -p \"|set:house\";\n"
                     "createNode mystery -n \"odd\" -p \"set:house\";\n"
                     "createNode transform -n \"moved\" -p \"set:house\";\n"
                     "createNode transform -n \"freed\" -p \"set:house\";\n"
                     "createNode transform -n \"own\";\n");
    reopen("shot.ma");
    EXPECT_EQ(eval("listRelatives -parent below"), "");
    run("parent moved own; parent -world freed");
    run("parent below own");
    run("undo");
    const auto expectParents = [&](const std::string& name) {
        EXPECT_THAT(content(name), AllOf(HasSubstr("createNode transform -n \"below\" -p \"set:house\";"),
                                         HasSubstr("createNode transform -n \"locator1\" -p \"|set:house\";"),
                                         HasSubstr("createNode locator -n \"mark\" -p \"locator1\";"),
                                         HasSubstr("createNode mystery -n \"odd\" -p \"set:house\";")));
        EXPECT_THAT(content(name), AllOf(HasSubstr("createNode transform -n \"moved\" -p \"own\";"),
                                         HasSubstr("createNode transform -n \"freed\";")));
    };
    saveAs("again.ma");
    expectParents("again.ma");
    kernel::saveScene(session, path("again.mb"), kernel::SceneFileType::Binary);
    reopen("again.mb");
    saveAs("third.ma");
    expectParents("third.ma");

    ASSERT_TRUE(run("file -loadReference \"setRN\""));
    EXPECT_EQ(eval("listRelatives set:house"), "set:houseShape below locator1 odd");
    EXPECT_EQ(eval("listRelatives -parent mark"), "locator1");
    run("parent -world below");
    saveAs("third.ma");
    EXPECT_THAT(content("third.ma"), HasSubstr("createNode transform -n \"below\";"));
}

TEST_F(ReferencedFile, ARelativePathIsFoundFromWhereverTheSceneIsSaved)
{
    write("shots/shot.ma", "file -r -ns \"set\" -rfn \"setRN\" \"../set.ma\";\n");
    reopen("shots/shot.ma");
    EXPECT_EQ(eval("getAttr set:house.tx"), "5");
    run("file -reference \"../set.ma\"");
    EXPECT_EQ(eval("file -q -reference"), path("set.ma") + " " + path("set.ma") + "{1}");
    saveAs("shots/other.ma");
    EXPECT_THAT(content("shots/other.ma"), Not(HasSubstr(".ed")));
    EXPECT_THAT(content("shots/other.ma"), AllOf(HasSubstr("\"../set.ma\";"), HasSubstr("\"../set.ma{1}\";")));
    std::filesystem::create_directories(path("far/away"));
    saveAs("far/away/shot.ma");
    EXPECT_THAT(content("far/away/shot.ma"), HasSubstr("\"" + path("set.ma") + "\";"));
}

TEST_F(ReferencedFile, GoesWithAllItsNodesWhenRemoved)
{
    file("-reference -namespace \"set\"", "set.ma");
    run("createNode transform -n below -p \"set:house\"; setAttr below.tx 1");
    session.scene.setModified(false);
    EXPECT_EQ(eval("file -removeReference -referenceNode \"setRN\""), path("set.ma"));
    EXPECT_EQ(eval("ls \"set*\""), "");
    EXPECT_EQ(eval("namespace -exists set"), "0");
    EXPECT_EQ(eval("ls -long below"), "|below") << "the scene's own nodes stay";
    EXPECT_FALSE(session.undo.canUndo());
    EXPECT_TRUE(session.scene.isModified());
    EXPECT_EQ(error("file -removeReference \"" + path("set.ma") + "\""),
              "No reference matches name: " + path("set.ma"));
}

TEST_F(ReferencedFile, TheScenesOwnNodesStayInPlaceWhenRemoved)
{
    write("turned.ma", "createNode transform -n \"house\";\n\tsetAttr \".t\" -type \"double3\" 5 0 0 ;\n"
                       "\tsetAttr \".rz\" 90;\n\tsetAttr \".s\" -type \"double3\" 2 2 2 ;\n");
    file("-reference -namespace \"set\"", "turned.ma");
    run("createNode transform -n below -p \"set:house\"; setAttr below.t 1 2 3; setAttr below.ro 4; setAttr below.ry "
        "30;"
        "setAttr below.rp 7 0 1; setAttr below.sp 0 4 0; setAttr below.sh 0.5 0 1; setAttr below.ra 5 6 7;"
        "createNode locator -n mark -p \"set:house\"; setAttr mark.lpx 4");
    const auto corners = [&](const std::string& name) {
        const kernel::Matrix4 world = session.scene.findOne(name)->worldMatrix();
        std::vector<double> found;
        for (const kernel::Vector3& corner : {kernel::Vector3{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}) {
            const kernel::Vector3 point = kernel::transformPoint(corner, world);
            found.insert(found.end(), {point.x, point.y, point.z});
        }
        return found;
    };
    const auto below = corners("below");
    const auto mark = corners("mark");
    run("file -removeReference -referenceNode \"setRN\"");
    EXPECT_THAT(corners("below"), testing::Pointwise(testing::DoubleNear(1e-9), below));
    EXPECT_THAT(corners("mark"), testing::Pointwise(testing::DoubleNear(1e-9), mark));
    EXPECT_EQ(eval("ls -long mark"), "|locator1|mark");
    EXPECT_EQ(eval("getAttr mark.lpx"), "4");
}

TEST_F(ReferencedFile, WhatWasDoneBeforeItsReadingCannotBeUndone)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\n"
                     "createNode transform -n \"below\" -p \"set:house\";\n");
    reopen("shot.ma");
    run("createNode transform -n own; parent below own");
    EXPECT_THAT(error("file -reference \"" + path("gone.ma") + "\""), HasSubstr("File not found"));
    EXPECT_TRUE(session.undo.canUndo());
    run("file -loadReference \"setRN\"");
    EXPECT_FALSE(session.undo.canUndo());
    run("setAttr below.tx 1");
    file("-reference", "set.ma");
    EXPECT_FALSE(session.undo.canUndo());
}

TEST_F(ReferencedFile, NoNodeWaitsForAParentInOneThatIsRemoved)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\n"
                     "createNode transform -n \"below\" -p \"|set:house\";\n"
                     "createNode transform -n \"waiting\" -p \"set2:house\";\n");
    reopen("shot.ma");
    run("file -removeReference -referenceNode \"setRN\"");
    file("-reference -namespace \"set\"", "set.ma");
    EXPECT_EQ(eval("ls -long below waiting"), "|below |waiting");
    saveAs("again.ma");
    EXPECT_THAT(content("again.ma"), AllOf(HasSubstr("createNode transform -n \"below\";"),
                                           HasSubstr("createNode transform -n \"waiting\" -p \"set2:house\";")));
    file("-reference -namespace \"set2\"", "set.ma");
    EXPECT_EQ(eval("listRelatives -parent waiting"), "set2:house");
}

TEST_F(ReferencedFile, NodesBelowOneThatMissesItsParentFindIt)
{
    write("shot.ma", "file -r -ns \"set\" -dr 1 -rfn \"setRN\" \"set.ma\";\n"
                     "createNode transform -n \"box\";\n"
                     "createNode transform -n \"box\" -p \"|set:house\";\n"
                     "createNode transform -n \"inner\" -p \"set:house|box\";\n"
                     "createNode transform -n \"other\" -p \"|set:house|box\";\n"
                     "createNode transform -n \"atRoot\" -p \"|box\";\n"
                     "select -ne \"|set:house|box\";\n\tsetAttr \".tx\" 4;\n"
                     "select -ne \"|box\";\n\tsetAttr \".tx\" 2;\n");
    for (const char* how : {"-force -open", "-force -import -namespace \"in\""}) {
        SCOPED_TRACE(how);
        run("file -force -new");
        errors.clear();
        ASSERT_TRUE(file(how, "shot.ma"));
        EXPECT_THAT(errors, ElementsAre(HasSubstr("line 4: No object matches name: |set:house")));
        const std::string start = std::string(how).find("import") == std::string::npos ? "" : "in:";
        EXPECT_EQ(eval("listRelatives " + start + "box1"), start + "inner " + start + "other");
        EXPECT_EQ(eval("listRelatives " + start + "box"), start + "atRoot");
        EXPECT_EQ(eval("getAttr " + start + "box1.tx"), "4");
        EXPECT_EQ(eval("getAttr " + start + "box.tx"), "2");
    }
}
