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
