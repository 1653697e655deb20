#include "api/HostApi.h"
#include "api/Registration.h"
#include "kernel/SceneFile.h"
#include "support/HostFixture.h"

#include <cstdlib>
#include <fstream>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// Works on the module SampleModule.cpp.
class ModuleLoaderTest : public HostFixture {
protected:
    const std::string m_path = SAMPLE_MODULE;
    const std::string m_load = "loadPlugin \"" + m_path + "\"";

    kernel::Value info(const std::string& flag) { return evaluate("pluginInfo -q " + flag + " SampleModule"); }
    void wish(const char* optionVariable) { session().optionVars[optionVariable] = 1; }
    std::string path(const char* file) const { return prefsDir().toStdString() + "/" + file; }
};

TEST_F(ModuleLoaderTest, LoadsByPathAndTellsWhatIsIn)
{
    EXPECT_EQ(info("-loaded"), kernel::Value(0));
    EXPECT_EQ(evaluate(m_load), kernel::Value(kernel::StringArray{"SampleModule"}));
    EXPECT_EQ(info("-loaded"), kernel::Value(1));
    EXPECT_EQ(info("-vendor"), kernel::Value("Sampler"));
    EXPECT_EQ(info("-version"), kernel::Value("3.1"));
    EXPECT_EQ(info("-apiVersion"), kernel::Value("20190000"));
    EXPECT_EQ(info("-path"), kernel::Value(m_path));
    EXPECT_EQ(info("-command"), kernel::Value(kernel::StringArray{"sampleModuleCount"}));
    EXPECT_EQ(info("-dependNode"), kernel::Value(kernel::StringArray{"sampleModulePin"}));
    EXPECT_EQ(info("-data"), kernel::Value(kernel::StringArray{"sampleModuleNote"}));
    EXPECT_EQ(evaluate("pluginInfo -q -listPlugins"), kernel::Value(kernel::StringArray{"SampleModule"}));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(ModuleLoaderTest, ASecondLoadOnlyWarns)
{
    ASSERT_TRUE(run(m_load));
    EXPECT_TRUE(run("loadPlugin -quiet \"" + m_path + "\""));
    EXPECT_THAT(warnings(), IsEmpty());
    EXPECT_TRUE(run("loadPlugin SampleModule"));
    EXPECT_THAT(warnings(), ElementsAre(HasSubstr("already loaded")));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(ModuleLoaderTest, FindsModulesOnTheSearchPath)
{
    const std::string folder = m_path.substr(0, m_path.rfind('/'));
    setenv("MAYA_PLUG_IN_PATH", ("/nowhere::" + folder).c_str(), 1);
    EXPECT_TRUE(run("loadPlugin SampleModule.so"));
    unsetenv("MAYA_PLUG_IN_PATH");
    EXPECT_TRUE(api::isModuleLoaded("SampleModule"));
}

TEST_F(ModuleLoaderTest, SaysWhyAModuleCannotBeLoaded)
{
    std::ofstream(path("text.so")) << "no library";
    const struct {
        std::string name;
        const char* message;
    } cases[] = {{"nowhere", "Plug-in, \"nowhere\", was not found on MAYA_PLUG_IN_PATH."},
                 {"/no/such.so", "was not found on MAYA_PLUG_IN_PATH."},
                 {path("text.so"), "Unable to dynamically load : "},
                 {HOST_LIBRARY, "no initializePlugin"}};
    for (const auto& c : cases) {
        forgetLines();
        EXPECT_FALSE(run("loadPlugin \"" + c.name + "\"")) << c.name;
        EXPECT_THAT(errors(), Contains(HasSubstr(c.message))) << c.name;
    }
    EXPECT_EQ(evaluate("pluginInfo -q -listPlugins"), kernel::Value(kernel::StringArray{}));
}

TEST_F(ModuleLoaderTest, AFailedInitialisationLeavesNothingBehind)
{
    wish("sampleModuleFails");
    EXPECT_FALSE(run(m_load));
    EXPECT_THAT(errors(), Contains(HasSubstr("initializePlugin function failed (SampleModule)")));
    EXPECT_FALSE(api::isModuleLoaded("SampleModule"));
    EXPECT_EQ(session().nodeTypes.find("sampleModulePin"), nullptr);
    EXPECT_EQ(session().dataTypes.find("sampleModuleNote"), nullptr);
    EXPECT_EQ(session().commands.find("sampleModuleCount"), nullptr);
    EXPECT_TRUE(run("select persp"));  // no callback into the closed library
    EXPECT_THAT(said(kernel::Severity::Info), IsEmpty());
    session().optionVars.clear();
    EXPECT_TRUE(run(m_load));
}

TEST_F(ModuleLoaderTest, StaysWhileItsNodesAreInTheScene)
{
    ASSERT_TRUE(run(m_load + "; createNode sampleModulePin -n pinShape"));
    EXPECT_EQ(info("-unloadOk"), kernel::Value(0));
    EXPECT_FALSE(run("unloadPlugin SampleModule"));
    EXPECT_THAT(errors(),
                Contains(HasSubstr("Plug-in, \"SampleModule\", cannot be unloaded because it is still in use")));
    EXPECT_TRUE(api::isModuleLoaded("SampleModule"));

    EXPECT_TRUE(run("unloadPlugin -force SampleModule"));
    EXPECT_FALSE(api::isModuleLoaded("SampleModule"));
    const auto pin = session().scene.findOne("pinShape");
    EXPECT_EQ(pin->typeName(), "sampleModulePin");
    EXPECT_EQ(pin->type().plugin, "");
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(ModuleLoaderTest, StaysWhileTheUndoQueueHoldsItsCommands)
{
    ASSERT_TRUE(run(m_load));
    ASSERT_TRUE(run("sampleModuleCount"));
    EXPECT_FALSE(run("unloadPlugin SampleModule"));
    ASSERT_TRUE(run("flushUndo"));
    EXPECT_TRUE(run("unloadPlugin SampleModule"));
    ASSERT_TRUE(run(m_load));
    ASSERT_TRUE(run("sampleModuleCount"));
    EXPECT_TRUE(run("unloadPlugin -force SampleModule"));
    EXPECT_FALSE(session().undo.canUndo());
}

TEST_F(ModuleLoaderTest, TakesAwayAndNamesWhatAModuleForgets)
{
    ASSERT_TRUE(run(m_load));
    wish("sampleModuleForgets");
    EXPECT_TRUE(run("unloadPlugin SampleModule"));
    EXPECT_THAT(warnings(), AllOf(Contains(HasSubstr("callback")), Contains(HasSubstr("sampleModuleCount")),
                                  Contains(HasSubstr("sampleModulePin")), Contains(HasSubstr("sampleModuleNote"))));
    forgetLines();
    EXPECT_TRUE(run("select persp"));
    EXPECT_THAT(said(kernel::Severity::Info), IsEmpty());
    EXPECT_EQ(session().commands.find("sampleModuleCount"), nullptr);
}

TEST_F(ModuleLoaderTest, AModuleMayRefuseToGoUnlessForced)
{
    ASSERT_TRUE(run(m_load));
    wish("sampleModuleRefuses");
    EXPECT_FALSE(run("unloadPlugin SampleModule"));
    EXPECT_THAT(errors(), Contains(HasSubstr("uninitializePlugin function failed (SampleModule)")));
    EXPECT_TRUE(api::isModuleLoaded("SampleModule"));
    EXPECT_TRUE(run("unloadPlugin -f SampleModule"));
    EXPECT_FALSE(api::isModuleLoaded("SampleModule"));
}

TEST_F(ModuleLoaderTest, StaysWhileItsCodeRunsEvenWhenForced)
{
    ASSERT_TRUE(run(m_load));
    {
        const api::ModuleScope caller("SampleModule");
        const api::ModuleScope another("another");  // it called back into the host, which runs somebody else's code
        EXPECT_FALSE(run("unloadPlugin -force SampleModule"));
        EXPECT_THAT(errors(),
                    Contains(HasSubstr("Plug-in, \"SampleModule\", cannot be unloaded while its code is running")));
    }
    EXPECT_TRUE(api::isModuleLoaded("SampleModule"));
    EXPECT_TRUE(run("unloadPlugin SampleModule"));
}

TEST_F(ModuleLoaderTest, UnloadedNodesComeBackWithTheirDataWhenTheSceneIsReadAgain)
{
    ASSERT_TRUE(run(m_load));
    ASSERT_TRUE(run("createNode sampleModulePin -n pinShape; setAttr \"pinShape.depth\" 4.25;"
                    "setAttr \"pinShape.note\" -type \"sampleModuleNote\" \"kept words\""));
    ASSERT_TRUE(run("unloadPlugin -f SampleModule"));
    kernel::saveScene(session(), path("orphans.ma"));
    const std::string folder = m_path.substr(0, m_path.rfind('/'));
    setenv("MAYA_PLUG_IN_PATH", folder.c_str(), 1);
    kernel::openScene(session(), path("orphans.ma"));
    unsetenv("MAYA_PLUG_IN_PATH");
    EXPECT_THAT(errors(), IsEmpty());
    EXPECT_TRUE(api::isModuleLoaded("SampleModule"));  // the scene requires it
    EXPECT_EQ(evaluate("getAttr pinShape.depth"), kernel::Value(4.25));
    kernel::saveScene(session(), path("again.ma"));
    std::ifstream file(path("again.ma"));
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_THAT(text, HasSubstr("\"kept words\""));
}

}  // namespace
