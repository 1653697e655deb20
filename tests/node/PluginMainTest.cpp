// The built module, loaded as the host loads it.

#include "settings/Names.h"
#include "support/HostFixture.h"

#include "api/HostApi.h"
#include "api/Registration.h"

#include <QDir>
#include <QFile>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char kName[] = "lumisketch2";

class PluginMainTest : public HostFixture {
protected:
    bool load() { return host().loadModule(LUMISKETCH_MODULE); }
    bool unload() { return run("unloadPlugin lumisketch2"); }
    void take(const char* command)
    {
        session().commands.add(command, [](const kernel::ValueList&) { return kernel::Value(); });
    }
    QString preferences()
    {
        QFile file(QDir(prefsDir()).filePath("lumisketch2.ini"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

TEST_F(PluginMainTest, RegistersCommandsToolsDataNodeAndDrawing)
{
    ASSERT_TRUE(load());
    EXPECT_THAT(api::commandsOf(kName), ElementsAre("tqLumisketchNode", "tqLumisketchLayer", "tqLumisketchFrame",
                                                    "tqLumisketchStroke", "tqLumisketchUtil"));
    EXPECT_THAT(api::contextCommandsOf(kName), ElementsAre("tqLmDrawCtx", "tqLmTransformCtx"));
    EXPECT_THAT(api::drawOverridesOf(kName), ElementsAre("drawdb/geometry/tqLumisketch"));
    const kernel::NodeType* type = session().nodeTypes.find(names::kNodeType);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->id, 1157254u);
    EXPECT_NE(session().dataTypes.find(names::kLayerDataType), nullptr);
    EXPECT_EQ(evaluate("pluginInfo -q -version lumisketch2"), kernel::Value(std::string("2.5.4")));
    EXPECT_EQ(kernel::toText(evaluate("size(`scriptJob -listJobs`)")), "1");
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PluginMainTest, LeavesNothingBehindHoweverOftenItIsLoaded)
{
    for (int round = 0; round < 10; ++round) {
        ASSERT_TRUE(load());
        ASSERT_TRUE(run("tqLumisketchNode -l -c persp -f"));
        ASSERT_TRUE(run("file -f -new; flushUndo"));
        ASSERT_TRUE(unload());
        EXPECT_FALSE(api::isModuleLoaded(kName));
        EXPECT_EQ(kernel::toText(evaluate("size(`scriptJob -listJobs`)")), "0");
        // The loader warns of whatever a module leaves registered.
        EXPECT_THAT(warnings(), IsEmpty());
        EXPECT_THAT(errors(), IsEmpty());
    }
    // Whoever still listened would now run code that is gone.
    for (const char* event : {"SelectionChanged", "timeChanged", "timeUnitChanged", "SceneOpened", "Undo", "Redo"}) {
        session().events.raise(event);
    }
}

TEST_F(PluginMainTest, SavesThePreferencesWhenItIsUnloadedAndWhenTheHostQuits)
{
    ASSERT_TRUE(load());
    EXPECT_TRUE(preferences().isEmpty());
    ASSERT_TRUE(unload());
    EXPECT_TRUE(preferences().contains("pencilSize=6"));

    QFile::remove(QDir(prefsDir()).filePath("lumisketch2.ini"));
    ASSERT_TRUE(load());
    session().events.raise("quitApplication");
    EXPECT_TRUE(preferences().contains("version=1"));
}

TEST_F(PluginMainTest, AFailedRegistrationStopsTheLoadWithItsOwnMessage)
{
    take("tqLumisketchStroke");
    EXPECT_FALSE(load());
    EXPECT_THAT(errors(), Contains(AllOf(StartsWith("Failed to register 'tqLumisketchStroke' command: (kFailure)"),
                                         Not(HasSubstr("[Lumisketch2]")))));
    EXPECT_THAT(errors(), Not(Contains(HasSubstr("contextCommand"))));
    EXPECT_FALSE(api::isModuleLoaded(kName));
    EXPECT_EQ(session().nodeTypes.find(names::kNodeType), nullptr);
    EXPECT_EQ(kernel::toText(evaluate("size(`scriptJob -listJobs`)")), "0");
}

TEST_F(PluginMainTest, EachKindOfRegistrationFailsInItsOwnWords)
{
    take("tqLmDrawCtx");
    EXPECT_FALSE(load());
    EXPECT_THAT(errors(), Contains(StartsWith("Failed to register 'tqLmDrawCtx' contextCommand: (kFailure)")));
    session().commands.remove("tqLmDrawCtx");

    kernel::NodeType taken;
    taken.name = names::kNodeType;
    taken.base = session().nodeTypes.find("locator");
    session().nodeTypes.add(taken);
    forgetLines();
    EXPECT_FALSE(load());
    EXPECT_THAT(errors(), Contains("Failed to register base node"));
    session().nodeTypes.remove(names::kNodeType);

    forgetLines();
    EXPECT_TRUE(load());
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
