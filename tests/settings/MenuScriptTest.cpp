// What the menu script makes, with stand-ins that take note of what the host is asked to show.

#include "settings/Names.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "support/HostileTexts.h"
#include "support/QtPrint.h"
#include "support/SettingsFixture.h"

#include <map>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<std::string>;

Words wordsOf(const kernel::ValueList& arguments)
{
    Words words;
    for (const kernel::Value& argument : arguments) {
        words.push_back(kernel::toText(argument));
    }
    return words;
}

bool has(const Words& words, const char* flag)
{
    return std::find(words.begin(), words.end(), flag) != words.end();
}

/// What stands behind a flag; empty without the flag.
std::string valueOf(const Words& words, const char* flag)
{
    const auto found = std::find(words.begin(), words.end(), flag);
    return found == words.end() || found + 1 == words.end() ? std::string() : *(found + 1);
}

bool isOn(const std::string& value)
{
    return value == "on" || value == "true" || value == "1";
}

/// Menus as a tree of lines, in the order in which they are made.
class MenuStandIn {
public:
    struct Item {
        std::string parent;
        std::string label;
        std::string command;
        char mark = ' ';  // '>' submenu, '-' divider, 'o' radio item, '#' check item, '=' the menu itself
        bool isOn = false;
    };

    kernel::Value menu(const Words& words)
    {
        if (has(words, "-exists")) {
            return static_cast<int>(m_items.count(words.back()));
        }
        m_tearsOff = isOn(valueOf(words, "-tearOff"));
        return m_current = add({valueOf(words, "-parent"), valueOf(words, "-label"), {}, '='});
    }

    kernel::Value menuItem(const Words& words)
    {
        if (has(words, "-edit")) {
            return edit(words);
        }
        Item item{m_current, valueOf(words, "-label"), valueOf(words, "-command")};
        item.mark = has(words, "-subMenu")     ? '>'
                  : has(words, "-divider")     ? '-'
                  : has(words, "-radioButton") ? 'o'
                  : has(words, "-checkBox")    ? '#'
                                               : ' ';
        item.isOn = isOn(valueOf(words, "-radioButton")) || isOn(valueOf(words, "-checkBox"));
        const std::string name = add(item);
        if (item.mark == '>') {
            m_current = name;
        }
        return name;
    }

    kernel::Value setParent(const Words& words)
    {
        if (words == Words{"-menu", ".."}) {
            m_current = m_items.at(m_current).parent;
        }
        return {};
    }

    kernel::Value deleteUi(const Words& words)
    {
        for (auto item = m_items.begin(); item != m_items.end();) {
            item = item->first.rfind(words.back(), 0) == 0 ? m_items.erase(item) : std::next(item);
        }
        return {};
    }

    bool isEmpty() const { return m_items.empty(); }
    bool tearsOff() const { return m_tearsOff; }
    const Item& root() const { return m_items.begin()->second; }

    /// A line for each item: the submenu, what it is, its label and what it runs.
    QStringList outline() const
    {
        QStringList lines;
        for (const std::string& name : m_order) {
            const auto found = m_items.find(name);
            if (found == m_items.end() || found->second.mark == '=') {
                continue;
            }
            const Item& item = found->second;
            const Item& parent = m_items.at(item.parent);
            const QString path = parent.mark == '>' ? QString::fromStdString(parent.label) + " > " : QString();
            const QString tail = item.command.empty() ? "" : ": " + QString::fromStdString(item.command);
            const char* const mark = item.mark == '-' ? "---"
                                   : item.mark == 'o' ? "(o) "
                                   : item.mark == '#' ? "[#] "
                                                      : "";
            lines << path + mark + QString::fromStdString(item.label) + tail + (item.mark == '>' ? " >" : "");
        }
        return lines;
    }

    QStringList labelsThatAreOn() const
    {
        QStringList labels;
        for (const std::string& name : m_order) {
            const auto found = m_items.find(name);
            if (found != m_items.end() && found->second.isOn) {
                labels << QString::fromStdString(found->second.label);
            }
        }
        return labels;
    }

private:
    std::string add(const Item& item)
    {
        const std::string name = item.parent + '|' + std::to_string(m_order.size());
        m_items[name] = item;
        m_order.push_back(name);
        return name;
    }

    kernel::Value edit(const Words& words)
    {
        const auto found = m_items.find(words.back());
        if (found == m_items.end()) {
            throw kernel::CommandError("menuItem: Object '" + words.back() + "' not found.");
        }
        Item& item = found->second;
        if (item.mark == 'o') {
            for (auto& other : m_items) {
                other.second.isOn =
                    other.second.isOn && (other.second.parent != item.parent || other.second.mark != 'o');
            }
        }
        item.isOn = isOn(valueOf(words, item.mark == 'o' ? "-radioButton" : "-checkBox"));
        return {};
    }

    std::map<std::string, Item> m_items;
    std::vector<std::string> m_order;
    std::string m_current;
    bool m_tearsOff = false;
};

class MenuScript : public SettingsFixture {
protected:
    MenuScript()
    {
        standIn("menu", [this](const Words& words) { return menus.menu(words); });
        standIn("menuItem", [this](const Words& words) { return menus.menuItem(words); });
        standIn("setParent", [this](const Words& words) { return menus.setParent(words); });
        standIn("deleteUI", [this](const Words& words) { return menus.deleteUi(words); });
        standIn("radioMenuItemCollection", [](const Words&) { return kernel::Value(); });
        standIn("menuSet", [this](const Words& words) { return menuSet(words); });
        standIn("window", [this](const Words& words) { return window(words); });
        standIn("paneLayout", [this](const Words& words) { return part("paneLayout", words); });
        standIn("modelPanel", [this](const Words& words) { return part("modelPanel", words); });
        standIn("showWindow", [this](const Words& words) {
            visibleWindows.insert(words.back());
            return note("showWindow", words);
        });
        standIn("lookThru", [this](const Words& words) { return note("lookThru", words); });
        standIn("intrude", [this](const Words& words) { return note("intrude", words); });
        standIn(names::kLayerCommand, [this](const Words& words) { return note("layer", words); });
    }
    ~MenuScript() override { script::deleteMainMenu(); }

    kernel::Value note(const std::string& command, const Words& words)
    {
        QString line = QString::fromStdString(command);
        for (const std::string& word : words) {
            line += ' ' + QString::fromStdString(word);
        }
        notes << line;
        return {};
    }

    /// What was noted since the last call.
    QStringList takeNotes()
    {
        QStringList taken;
        taken.swap(notes);
        return taken;
    }

    bool makeMenu() { return script::sourceMenuScript() && script::createMainMenu(); }
    QStringList selection() { return QString::fromStdString(kernel::toText(evaluate("ls -sl"))).split(' '); }

    MenuStandIn menus;
    QStringList notes;
    std::set<std::string> parts;
    std::set<std::string> visibleWindows;
    std::string currentSet = "modelingMenuSet";

private:
    void standIn(const char* name, std::function<kernel::Value(const Words&)> answer)
    {
        session().commands.remove(name);
        session().commands.add(name,
                               [answer](const kernel::ValueList& arguments) { return answer(wordsOf(arguments)); });
    }

    kernel::Value menuSet(const Words& words)
    {
        if (has(words, "-query")) {
            return currentSet;
        }
        if (has(words, "-currentMenuSet")) {
            currentSet = words.back();
        }
        return note("menuSet", words);
    }

    kernel::Value window(const Words& words)
    {
        if (has(words, "-query")) {
            return static_cast<int>(visibleWindows.count(words.back()));
        }
        return part("window", words);
    }

    kernel::Value part(const char* command, const Words& words)
    {
        if (has(words, "-exists")) {
            return static_cast<int>(parts.count(words.back()));
        }
        parts.insert(words.back());
        note(command, words);
        return words.back();
    }
};

TEST_F(MenuScript, MakesTheMenuWithItsGroupsAndWhatEachItemRuns)
{
    ASSERT_TRUE(makeMenu());
    EXPECT_EQ(menus.root().label, "LM2");
    EXPECT_TRUE(menus.tearsOff());
    EXPECT_EQ(menus.root().parent, kernel::toText(evaluate("string $s = $gMainWindow; $s;")));
    const QStringList expected = {
        "Draw: tqLumisketchUtil -draw",
        "Transform: tqLumisketchUtil -transform",
        "---",
        "Draw Tool >",
        "Draw Tool > (o) Pencil: tqLumisketchUtil -pencilTool",
        "Draw Tool > (o) Brush: tqLumisketchUtil -brushTool",
        "Draw Tool > (o) Eraser: tqLumisketchUtil -eraserTool",
        "Draw Tool > (o) Text: tqLumisketchUtil -textTool",
        "Draw Tool > (o) Line: tqLumisketchUtil -lineTool",
        "Draw Tool > (o) Arrow: tqLumisketchUtil -arrowTool",
        "Draw Tool > (o) Ellipse: tqLumisketchUtil -ellipseTool",
        "Draw Tool > (o) Rectangle: tqLumisketchUtil -rectangleTool",
        "---",
        "Layer >",
        "Layer > New Layer...: tqLumisketchUtil -newLayer",
        "Layer > Layer Properties...: tqLumisketchUtil -layerProperties",
        "Frame >",
        "Frame > Insert Frame(s): tqLumisketchFrame -insert",
        "Frame > Duplicate Frame: tqLumisketchFrame -duplicate",
        "Frame > Delete Frame(s): tqLumisketchFrame -delete",
        "Frame > ---",
        "Frame > Cut Frame(s): tqLumisketchFrame -cut",
        "Frame > Copy Frame(s): tqLumisketchFrame -copy",
        "Frame > Paste Frame(s): tqLumisketchFrame -paste",
        "Frame > ---",
        "Frame > Clear Frame(s): tqLumisketchFrame -clear",
        "Frame > ---",
        "Frame > Step Forward: tqLumisketchFrame -stepForward",
        "Frame > Step Back: tqLumisketchFrame -stepBack",
        "Ghosting >",
        "Ghosting > [#] Ghost Previous: tqLumisketchUtil -e -ghostPrevious -1",
        "Ghosting > [#] Ghost Next: tqLumisketchUtil -e -ghostNext -1",
        "Ghosting > ---",
        "Ghosting > Settings...: tqLumisketchUtil -ghostingSettings",
        "---",
        "Toolbox...: tqLumisketchUtil -toolbox",
        "Tool Options...: tqLumisketchUtil -toolOptions",
        "Layer Manager...: tqLumisketchUtil -layerManager",
        "Retiming Tool...: tqLumisketchUtil -retimingTool",
        "---",
        "Display Timeline Frames >",
        "Display Timeline Frames > (o) Always: tqLumisketchUtil -e -timelineFrameDisplay 0",
        "Display Timeline Frames > (o) Selection/Context Active: tqLumisketchUtil -e -timelineFrameDisplay 1",
        "Display Timeline Frames > (o) Off: tqLumisketchUtil -e -timelineFrameDisplay 2",
        "---",
        "View >",
        "View > Lumisketch View: tqLumisketchUtil -fv",
        "View > Move layers to Lumisketch View: tqLumisketchUtil -fvm \"\"",
        "Utilities >",
        "Utilities > Reset UI: tqLumisketchUtil -resetUI",
        "Cleanup >",
        "Cleanup > Delete Active Layer: tqLmDeleteActiveLayer()",
        "Cleanup > Delete Active Camera Layers: tqLmDeleteActiveCameraLayers()",
        "Cleanup > ---",
        "Cleanup > Clear All: tqLmDeleteAllNodes()",
        "---",
        "Preferences...: tqLumisketchUtil -preferences",
        "About...: tqLumisketchUtil -about",
    };
    const QStringList outline = menus.outline();
    for (int i = 0; i < qMax(expected.size(), outline.size()); ++i) {
        EXPECT_EQ(outline.value(i), expected.value(i)) << "line " << i;
    }
    EXPECT_EQ(menus.labelsThatAreOn(), (QStringList{"Pencil", "Always"}));
    EXPECT_TRUE(takeNotes().isEmpty()) << "no menu set is touched";
}

TEST_F(MenuScript, ShowsTheToolTheGhostsAndTheTimelineDisplayAsTheyAreSet)
{
    EXPECT_TRUE(script::notifyMainMenu()) << "there is no menu yet, and nothing to fail";
    ASSERT_TRUE(makeMenu());
    Preferences& preferences = Preferences::instance();
    preferences.setActiveTool(ToolType::Ellipse);
    preferences.setGhostNext(true);
    preferences.setGhostPrev(false);
    preferences.setTimelineFrameDisplay(2);
    EXPECT_TRUE(script::notifyMainMenu());
    EXPECT_EQ(menus.labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Next", "Off"}));

    preferences.setGhostNext(false);
    preferences.setGhostPrev(true);
    EXPECT_TRUE(script::notifyMainMenu());
    EXPECT_EQ(menus.labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Previous", "Off"}));

    // A value from elsewhere than the menu's own items changes nothing.
    EXPECT_TRUE(run("tqLmUpdateMainMenu(8, 1, 0, 3); tqLmUpdateMainMenu(-1, 1, 0, -1)"));
    EXPECT_EQ(menus.labelsThatAreOn(), (QStringList{"Ellipse", "Ghost Previous", "Off"}));
}

TEST_F(MenuScript, OneMenuIsThereHoweverOftenItIsMadeAndNoneAfterItIsDeleted)
{
    ASSERT_TRUE(makeMenu());
    const QStringList once = menus.outline();
    ASSERT_TRUE(makeMenu());
    EXPECT_EQ(menus.outline(), once);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(script::deleteMainMenu());
        EXPECT_TRUE(menus.isEmpty());
        EXPECT_TRUE(script::notifyMainMenu());
    }
    ASSERT_TRUE(makeMenu());
    run("deleteUI -menu $gTqLmMainMenu");
    EXPECT_TRUE(script::notifyMainMenu()) << "the user may have taken the menu away";
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(MenuScript, GoesIntoTheAnimationSetAloneAndShowsTheSetBeforeAgainWhenTheHostIsIdle)
{
    Preferences::instance().setShowMainMenuInAnimationSet(true);
    ASSERT_TRUE(makeMenu());
    const QString menu = QString::fromStdString(kernel::toText(evaluate("string $m = $gTqLmMainMenu; $m;")));
    EXPECT_EQ(takeNotes(), (QStringList{"menuSet -currentMenuSet animationMenuSet", "menuSet -addMenu " + menu,
                                        "menuSet -currentMenuSet modelingMenuSet"}));
    ASSERT_TRUE(makeMenu());
    EXPECT_EQ(currentSet, "animationMenuSet");
    host().drainIdle();
    EXPECT_EQ(currentSet, "modelingMenuSet");
}

// The name comes from a file that anybody can write.
TEST_F(MenuScript, ANameIsALabelAndNothingElseWhateverItSays)
{
    QStringList names = hostileTexts();
    names << QString::fromUtf8("スケッチ") << QString::fromUtf8("Schnellübersicht") << "LM2";
    for (const QString& name : names) {
        Preferences::instance().setMainMenuName(name);
        ASSERT_TRUE(makeMenu()) << name.left(60).toStdString();
        EXPECT_EQ(QString::fromStdString(menus.root().label), name);
    }
    EXPECT_TRUE(takeNotes().isEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(MenuScript, OpensTheFloatingViewOnceThroughACameraOfItsOwn)
{
    ASSERT_TRUE(script::sourceMenuScript());
    run("select -r persp");
    ASSERT_TRUE(script::openFloatingViewport(""));
    const QStringList shown = {
        "window -title Lumisketch -widthHeight 300 280 tqLmFloatingWindow",
        "paneLayout -configuration single tqLumisketchFloatingPaneLayout",
        "modelPanel -parent tqLumisketchFloatingPaneLayout tqLumisketchFloatingModelPanel",
        "lookThru tqLumisketchFloatingModelPanel lumisketchCam",
        "showWindow tqLmFloatingWindow",
    };
    EXPECT_EQ(takeNotes(), shown);
    EXPECT_EQ(kernel::toText(evaluate("getAttr lumisketchCam.translate")), "0 1000 0");
    EXPECT_EQ(selection(), QStringList("persp"));

    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_TRUE(takeNotes().isEmpty()) << "a visible window is left alone";

    visibleWindows.clear();
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(takeNotes(), shown.mid(3));

    // Without its window the panel is another's leftover.
    visibleWindows.clear();
    parts.erase("tqLmFloatingWindow");
    parts.erase("tqLumisketchFloatingPaneLayout");
    run("file -f -new");
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(takeNotes().last(), "showWindow tqLmFloatingWindow");
    EXPECT_EQ(selection(), QStringList("")) << "an empty selection stays empty";
}

TEST_F(MenuScript, ANewScenesCameraIsLookedThroughByTheWindowThatIsOpen)
{
    ASSERT_TRUE(script::sourceMenuScript());
    ASSERT_TRUE(script::openFloatingViewport(""));
    run("file -f -new");
    takeNotes();
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(takeNotes(), QStringList("lookThru tqLumisketchFloatingModelPanel lumisketchCam"));
}

TEST_F(MenuScript, MovesTheLayersOfTheCameraThatIsNamed)
{
    ASSERT_TRUE(script::sourceMenuScript());
    ASSERT_TRUE(script::openFloatingViewport("persp"));
    EXPECT_EQ(takeNotes().last(), "layer -mva lumisketchCam persp");
    ASSERT_TRUE(script::openFloatingViewport("lumisketchCam"));
    EXPECT_TRUE(takeNotes().isEmpty()) << "they are there already";
    for (const QString& text : hostileTexts()) {
        ASSERT_TRUE(script::openFloatingViewport(text));
        EXPECT_EQ(takeNotes(), QStringList("layer -mva lumisketchCam " + text));
    }
}

TEST_F(MenuScript, IsOneStepToUndo)
{
    ASSERT_TRUE(script::sourceMenuScript());
    EXPECT_EQ(session().undo.count(), 0u);
    ASSERT_TRUE(script::openFloatingViewport(""));
    EXPECT_EQ(session().undo.count(), 1u);
    run("undo");
    EXPECT_EQ(kernel::toText(evaluate("objExists lumisketchCam")), "0");
}

}  // namespace
