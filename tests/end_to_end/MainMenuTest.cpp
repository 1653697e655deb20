// The plug-in's menu in the window's bar, worked with a real pointer.

#include "support/MenuFixture.h"

using MainMenu = MenuFixture;

TEST_F(MainMenu, EveryEntryIsChosenWithThePointerAndItsCommandStandsInTheJournal)
{
    start();
    drawALine();
    host().run("currentTime 5");
    int number = 0;
    for (const MenuEntry& entry : kMenuEntries) {
        announce(number++);
        EXPECT_TRUE(menu().choose(entry.labels)) << entry.command;
        if (entry.key) {
            host().key(entry.key);
        }
    }
    announce(number);

    const QStringList journal = this->journal();
    number = 0;
    for (const MenuEntry& entry : kMenuEntries) {
        const QStringList lines = section(journal, number++);
        EXPECT_TRUE(lines.contains(QString("e") + entry.command)) << entry.command << ":\n"
                                                                  << lines.join('\n').toStdString();
        EXPECT_TRUE(lines.filter(QRegExp("^[xw]")).isEmpty()) << entry.command << ":\n"
                                                              << lines.join('\n').toStdString();
    }
}

TEST_F(MainMenu, MarksFollowTheSettingsHoweverTheyAreChanged)
{
    start({{"tools/ghostPrev", true}, {"tools/activeTool", 4}, {"preferences/timelineFrameDisplay", 1}});
    EXPECT_EQ(menu().marked(), (QStringList{"Line", "Ghost Previous", "Selection/Context Active"}));
    const struct {
        const char* command;  // without one the item is chosen
        QStringList item;
        QStringList marked;
    } changes[] = {
        {"tqLumisketchUtil -brushTool", {}, {"Brush", "Ghost Previous", "Selection/Context Active"}},
        {nullptr, {"Draw Tool", "Rectangle"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {nullptr, {"Draw Tool", "Rectangle"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -ghostNext 1",
         {},
         {"Rectangle", "Ghost Previous", "Ghost Next", "Selection/Context Active"}},
        {nullptr, {"Ghosting", "Ghost Previous"}, {"Rectangle", "Ghost Next", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -ghostPrevious -1",
         {},
         {"Rectangle", "Ghost Previous", "Ghost Next", "Selection/Context Active"}},
        {nullptr, {"Ghosting", "Ghost Next"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -timelineFrameDisplay 2", {}, {"Rectangle", "Ghost Previous", "Off"}},
        {nullptr, {"Display Timeline Frames", "Always"}, {"Rectangle", "Ghost Previous", "Always"}},
        {"undo", {}, {"Rectangle", "Ghost Previous", "Always"}},
    };
    for (const auto& change : changes) {
        if (change.command) {
            host().run(change.command);
        } else {
            EXPECT_TRUE(menu().choose(change.item)) << change.item.join(" > ").toStdString();
        }
        EXPECT_EQ(menu().marked(), change.marked)
            << (change.command ? change.command : change.item.join(" > ").toStdString());
    }
}

TEST_F(MainMenu, EntriesOfATornOffCopyWorkWhenTheMenuIsClosed)
{
    start();
    ASSERT_TRUE(menu().tearOff());
    EXPECT_FALSE(host().controlRect(menu().item({"Draw"})).isNull()) << "the copy stays on the screen";
    for (const char* tool : {"Brush", "Eraser"}) {
        EXPECT_TRUE(menu().click({"Draw Tool"}));
        EXPECT_TRUE(menu().click({"Draw Tool", tool}));
        EXPECT_EQ(menu().marked().value(0), tool);
        EXPECT_TRUE(host().controlRect(menu().item({"Draw Tool", tool})).isNull()) << "only the copy itself stays";
    }
    EXPECT_TRUE(menu().click({"Draw"}));
    EXPECT_EQ(host().run("contextInfo -c `currentCtx`"), "tqLmDrawCtx");
}

TEST_F(MainMenu, IsShownByTheAnimationSetAloneWhenThatIsPreferred)
{
    start({{"preferences/showMainMenuInAnimationSet", true}});
    const auto chooseSet = [this](const QStringList& keys) {
        host().click(host().controlRect("menuSetBox").center());
        for (const QString& key : keys) {
            host().key(key);
        }
        host().key("Return");
    };
    EXPECT_TRUE(host().controlRect(menu().name()).isNull());
    EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "modelingMenuSet");
    for (int round = 0; round < 2; ++round) {
        chooseSet({"Home", "Down", "Down"});
        EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "animationMenuSet");
        EXPECT_TRUE(menu().choose({"Draw Tool", round ? "Text" : "Line"}));
        EXPECT_EQ(menu().marked().value(0), round ? "Text" : "Line");
        chooseSet({"Home"});
        EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "modelingMenuSet");
        EXPECT_TRUE(host().controlRect(menu().name()).isNull());
    }
}

TEST_F(MainMenu, CarriesTheNameThatIsPreferred)
{
    const QString name = QString::fromUtf8("Mein \"Men\u00fc\" & \u7d75\u30b3\u30f3\u30c6 'x'");
    start({{"main/mainMenuName", name}});
    EXPECT_EQ(host().run("menu -q -label $gTqLmMainMenu"), name);
    EXPECT_TRUE(menu().choose({"Draw Tool", "Text"}));
    EXPECT_EQ(menu().marked().value(0), "Text");
}

TEST_F(MainMenu, NothingIsLeftOfAModuleThatIsUnloadedAndAllIsThereWhenItIsLoadedAgain)
{
    start();
    const QString module = host().run("pluginInfo -q -path lumisketch2");
    const QString jobs = host().run("size(`scriptJob -listJobs`)");
    const QString name = menu().name();
    for (int round = 0; round < 5; ++round) {
        drawALine();
        EXPECT_EQ(host().run("size(`ls -type tqLumisketch`)"), "1");
        host().rightClick(host().viewRect().center());  // the tool's menu is open then
        EXPECT_FALSE(host().menuEntryRect("Transform").isNull());
        EXPECT_EQ(host().run("file -f -new; flushUndo; unloadPlugin lumisketch2"), "lumisketch2");
        EXPECT_EQ(host().run("pluginInfo -q -loaded lumisketch2"), "0");
        EXPECT_EQ(host().run(QString("menu -exists \"%1\"").arg(name)), "0");
        EXPECT_EQ(host().run("exists tqLumisketchUtil"), "0");
        EXPECT_FALSE(host().run(QString("loadPlugin \"%1\"").arg(module)).startsWith("Error"));
        EXPECT_TRUE(menu().choose({"Draw Tool", "Pencil"}));
    }
    EXPECT_EQ(host().run("size(`scriptJob -listJobs`)"), jobs);
    drawALine();
    EXPECT_EQ(host().run("size(`ls -type tqLumisketch`)"), "1");
    EXPECT_EQ(journal().filter(QRegExp("^x")), QStringList());
}
