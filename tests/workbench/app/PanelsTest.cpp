#include "app/panels/Panels.h"
#include "app/panels/AttributeText.h"
#include "app/panels/ChannelModel.h"
#include "app/panels/ChannelTable.h"
#include "app/panels/SceneTree.h"
#include "app/panels/ValueField.h"
#include "support/WindowFixture.h"
#include "workbench/app/WindowSession.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QTabBar>
#include <QTreeView>

#include <set>

namespace {

/// All panels to be seen, in a window without views, which would need a graphics card.
class Panels : public WindowFixture {
protected:
    Panels()
    {
        window.resize(1440, 900);
        window.show();
        for (const char* panel : {"outliner", "attributeEditor", "renderSettings", "channelBox"}) {
            run(std::string("workbenchPanel -visible 1 ") + panel);
        }
        run("createNode transform -n ball; createNode implicitSphere -n ballShape -p ball;"
            "createNode transform -n box; createNode implicitBox -n boxShape -p box; select ball");
    }
    bool run(const std::string& text)
    {
        const bool ok = WindowFixture::run(text);
        turnEventLoop();
        return ok;
    }
    template <class T = QWidget>
    T* find(const QString& name)
    {
        return window.findChild<T*>(name);
    }
    app::ChannelTable& table() { return *find<app::ChannelTable>("channels"); }
    app::ChannelModel& channels() { return *static_cast<app::ChannelModel*>(table().model()); }
    /// "ball, Visibility on, Translate X 0"; a name before what belongs to it.
    std::string channelText()
    {
        QStringList rows;
        for (int row = 0; row < channels().rowCount(); ++row) {
            rows << (text(row, app::ChannelModel::kLabel) + ' ' + text(row, app::ChannelModel::kValue)).trimmed();
        }
        return rows.join(", ").toStdString();
    }
    QString text(int row, int column) { return channels().index(row, column).data().toString(); }
    int rowOf(const QString& label)
    {
        for (int row = 0; row < channels().rowCount(); ++row) {
            if (text(row, app::ChannelModel::kLabel) == label) {
                return row;
            }
        }
        ADD_FAILURE() << "no channel " << label.toStdString();
        return 0;
    }
    QModelIndex field(const QString& label) { return channels().index(rowOf(label), app::ChannelModel::kValue); }
    /// Opens the field of a channel and leaves it to the caller what is typed.
    QWidget* edit(const QString& label)
    {
        table().setCurrentIndex(field(label));
        table().edit(field(label));
        return table().indexWidget(field(label));
    }
    void enter(const QString& label, const QString& text)
    {
        QWidget* const editor = edit(label);
        ASSERT_TRUE(editor) << label.toStdString();
        type(editor, text + '\n');
        turnEventLoop();
    }

    app::ValueField& valueField(const QString& name) { return *find<app::ValueField>(name); }
    QLineEdit& line(const QString& name) { return *valueField(name).findChild<QLineEdit*>(); }
    void enterIn(QLineEdit& line, const QString& text)
    {
        line.selectAll();
        type(&line, text + '\n');
        turnEventLoop();
    }
    /// Chooses what the attribute editor shows.
    void clickTab(int index)
    {
        QTabBar& tabs = *find<QTabBar>("attributeTabs");
        const QPointF at = tabs.tabRect(index).center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&tabs, &event);
        }
        turnEventLoop();
    }
    QTreeView& tree() { return *find<QTreeView>("outlinerTree"); }
    /// "persp top group1(a b)": what is listed, children in brackets.
    std::string treeText(const QModelIndex& parent = QModelIndex())
    {
        QStringList names;
        for (int row = 0; row < tree().model()->rowCount(parent); ++row) {
            const QModelIndex index = tree().model()->index(row, 0, parent);
            const std::string below = treeText(index);
            names << index.data().toString() + (below.empty() ? "" : QString::fromStdString('(' + below + ')'));
        }
        return names.join(' ').toStdString();
    }
    QModelIndex item(const QString& name)
    {
        const QModelIndexList found = tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, name, 1,
                                                            Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.front();
    }

    /// Chooses an entry of the channel box's menu.
    void choose(const QString& label)
    {
        for (QAction* action : table().actions()) {
            if (action->text() == label) {
                action->trigger();
            }
        }
        turnEventLoop();
    }
    QColor groundOf(const QString& label) { return field(label).data(Qt::BackgroundRole).value<QBrush>().color(); }

    std::function<void()> m_onAction = [] {};
    app::Panels m_panels{window, {session(), *views, [this](const std::string& text) {
                                      m_onAction();
                                      return session().script().execute(text, true, true).ok;
                                  }}};
};

}  // namespace

TEST(AttributeText, IsWhatAPersonReads)
{
    const struct {
        double number;
        const char* shown;
    } rows[] = {{0, "0"},           {35, "35"},       {1.41732, "1.417"}, {-2.5, "-2.5"},
                {0.0001, "0.0001"}, {10000, "10000"}, {0.99999999, "1"},  {123456789, "1.235e+08"}};
    for (const auto& row : rows) {
        EXPECT_EQ(app::shownText(row.number, {}), row.shown) << row.number;
    }
    EXPECT_EQ(app::niceName("horizontalFilmAperture"), "Horizontal Film Aperture");
    EXPECT_EQ(app::niceName("translateX"), "Translate X");
    EXPECT_EQ(app::niceName("shearXY"), "Shear XY");
    EXPECT_EQ(app::niceName("my_own"), "My Own");
}

// --- channel box ---------------------------------------------------------------------------------------------------

TEST_F(Panels, ChannelsAreThoseOfTheFirstSelectedNodeAndItsShape)
{
    EXPECT_EQ(channelText(),
              "ball, Visibility on, Translate X 0, Translate Y 0, Translate Z 0, Rotate X 0, Rotate Y 0, Rotate Z 0,"
              " Scale X 1, Scale Y 1, Scale Z 1, ballShape, Radius 1");
    run("setAttr -keyable off ball.s; setAttr -keyable off ball.sx; setAttr -keyable off ball.sy;"
        "setAttr -k off ball.sz; setAttr -k off ball.tx; setAttr -channelBox on ball.rotateOrder; select ball box");
    EXPECT_EQ(channelText(),
              "ball\u2026, Visibility on, Translate Y 0, Translate Z 0, Rotate X 0, Rotate Y 0, Rotate Z 0,"
              " Rotate Order xyz, ballShape\u2026, Radius 1");
    run("rename ball globe; select globe");
    EXPECT_EQ(text(0, 0), "globe");
    run("file -force -new");
    EXPECT_EQ(channelText(), "");
    table().setFocus();
    type(&table(), "1w");
}

TEST_F(Panels, ChannelsFollowTheSceneWithoutBeingMadeAnew)
{
    int resets = 0;
    QObject::connect(&channels(), &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    run("setAttr ball.tx 2.5; setAttr ball.v 0");
    EXPECT_EQ(field("Translate X").data().toString(), "2.5");
    EXPECT_EQ(field("Visibility").data().toString(), "off");
    run("setAttr -lock on ball.translate");
    EXPECT_FALSE(field("Translate Y").flags() & Qt::ItemIsEditable) << "locked through its compound";
    EXPECT_TRUE(field("Rotate Y").flags() & Qt::ItemIsEditable);
    run("undo; undo");
    EXPECT_TRUE(field("Translate Y").flags() & Qt::ItemIsEditable);
    EXPECT_EQ(field("Translate X").data().toString(), "0");
    EXPECT_EQ(resets, 0);
    run("select box");
    EXPECT_EQ(resets, 1);
}

TEST_F(Panels, WhatIsTypedInAFieldIsOneStepForAllSelected)
{
    run("createNode transform -n held; setAttr -lock on held.tx; select ball held box");
    enter("Translate X", "1.23456789");
    EXPECT_EQ(value("getAttr ball.tx") + ' ' + value("getAttr box.tx"), "1.23456789 1.23456789");
    EXPECT_EQ(value("getAttr held.tx"), "0");
    EXPECT_EQ(field("Translate X").data().toString(), "1.235");
    EXPECT_FALSE(table().hasFocus()) << "the next keys are the tool's";
    run("undo");
    EXPECT_EQ(value("getAttr ball.tx") + ' ' + value("getAttr box.tx"), "0 0");

    run("select ball");
    table().selectionModel()->select(field("Scale X"), QItemSelectionModel::ClearAndSelect);
    table().selectionModel()->select(field("Scale Z"), QItemSelectionModel::Select);
    table().selectionModel()->setCurrentIndex(field("Scale Z"), QItemSelectionModel::NoUpdate);
    table().edit(field("Scale Z"));
    type(table().indexWidget(field("Scale Z")), "3\n");
    turnEventLoop();
    EXPECT_EQ(value("getAttr ball.s"), "3 1 3");
    EXPECT_EQ(value("getAttr box.s"), "1 1 1");
    run("undo");
    EXPECT_EQ(value("getAttr ball.s"), "1 1 1");
    enter("Visibility", "off");
    EXPECT_EQ(value("getAttr ball.v"), "0");
    enter("Radius", "4");
    EXPECT_EQ(value("getAttr ballShape.radius"), "4");
}

TEST_F(Panels, BadInputIsToldAndTakenBack)
{
    for (const char* typed : {"wide", "1,5", " ", "\"; delete ball; \"", "-1"}) {
        forgetLines();
        enter("Radius", typed);
        EXPECT_EQ(errors().size(), 1u) << typed;
        EXPECT_EQ(value("getAttr ballShape.radius"), "1") << typed;
        EXPECT_EQ(field("Radius").data().toString(), "1") << typed;
    }
    EXPECT_EQ(value("objExists ball"), "1");
}

TEST_F(Panels, WhatGoesWhileItsFieldIsOpenTakesTheFieldAlong)
{
    for (const char* end : {"delete ball", "select box", "file -force -new"}) {
        QWidget* const editor = edit("Translate X");
        type(editor, "12");
        const QPointer<QWidget> open(editor);
        run(end);
        EXPECT_FALSE(open && open->isVisible()) << end;
        run("file -force -new; createNode transform -n box; createNode transform -n ball; select ball");
    }
    QWidget* const editor = edit("Translate X");
    type(editor, "12");
    session().script().execute("delete ball", true, true);
    type(editor, "\n");  // before the panel has followed
    turnEventLoop();
    EXPECT_EQ(channelText(), "");
}

TEST_F(Panels, ChannelsAreLockedAndKeyedByTheirMenu)
{
    run("select ball box");
    table().selectionModel()->select(field("Rotate X"), QItemSelectionModel::ClearAndSelect);
    table().selectionModel()->select(channels().index(rowOf("Rotate Y"), 0), QItemSelectionModel::Select);
    choose("Lock Selected");
    const std::string locks = "`getAttr -lock ball.rx` + `getAttr -lock box.rx` + `getAttr -lock ball.ry`"
                              " + `getAttr -lock box.ry`";
    EXPECT_EQ(value(locks), "4");
    EXPECT_FALSE(field("Rotate X").flags() & Qt::ItemIsEditable);
    choose("Unlock Selected");
    EXPECT_EQ(value(locks), "0");
    run("undo");
    EXPECT_EQ(value(locks), "4") << "one step";
}

TEST_F(Panels, FieldsTellWhetherTheyAreKeyed)
{
    clickTab(0);
    const auto ground = [this] {
        const QColor shown = groundOf("Translate X");
        EXPECT_EQ(line("translateX").palette().color(QPalette::Base), shown) << "in both panels alike";
        return shown.name().toStdString();
    };
    const std::string usual = ground();
    run("select ball box; currentTime 5");
    table().selectionModel()->select(field("Translate X"), QItemSelectionModel::ClearAndSelect);
    choose("Key Selected");
    EXPECT_EQ(value("keyframe -q -timeChange ball.tx") + ' ' + value("keyframe -q -timeChange box.tx"), "5 5");
    EXPECT_EQ(value("keyframe -q -keyframeCount ball"), "1") << "the selected channel alone";
    const std::string keyed = ground();
    run("currentTime 6");
    const std::string between = ground();
    run("setAttr -lock on ball.tx");
    const std::string locked = ground();
    EXPECT_EQ((std::set<std::string>{usual, keyed, between, locked}.size()), 4u);
    EXPECT_EQ(groundOf("Translate Y").name().toStdString(), usual);
    run("setAttr -lock off ball.tx; currentTime 5");
    EXPECT_EQ(ground(), keyed);
    run("undo; undo; undo; undo; undo");
    EXPECT_EQ(ground(), usual);
}

// --- attribute editor ----------------------------------------------------------------------------------------------

TEST_F(Panels, AttributeEditorSetsUpACamera)
{
    run("camera; select camera1");
    QTabBar& tabs = *find<QTabBar>("attributeTabs");
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()), "cameraShape1");
    EXPECT_EQ(line("focalLength").text(), "35");
    enterIn(line("focalLength"), "50");
    EXPECT_EQ(value("getAttr cameraShape1.focalLength"), "50");
    enterIn(line("horizontalFilmApertureDerived"), "2");  // the aspect ratio
    EXPECT_EQ(value("getAttr cameraShape1.horizontalFilmAperture"), "1.88976");
    enterIn(line("focalLengthDerived"), "90");  // the angle of view: half the film's width away
    EXPECT_EQ(value("abs(`getAttr cameraShape1.focalLength` - 1.88976 * 12.7) < 0.0001"), "1");
    emit valueField("filmFit").findChild<QComboBox*>()->activated(3);
    valueField("displayGateMask").findChild<QCheckBox*>()->click();
    turnEventLoop();
    EXPECT_EQ(value("getAttr -asString cameraShape1.filmFit"), "overscan");
    EXPECT_EQ(value("getAttr cameraShape1.displayGateMask"), "1");
    run("undo; undo; undo; undo; undo");
    EXPECT_EQ(line("focalLength").text(), "35");

    enterIn(line("focalLength"), "1");
    EXPECT_EQ(lastError(),
              "setAttr: Cannot set the attribute 'cameraShape1.focalLength' below its minimum value of 2.5.");
    EXPECT_EQ(line("focalLength").text(), "35");
    run("setAttr -lock on cameraShape1.cameraAperture");
    EXPECT_FALSE(valueField("horizontalFilmAperture").isEnabled());
    EXPECT_FALSE(valueField("horizontalFilmApertureDerived").isEnabled());
}

TEST_F(Panels, ASliderMovesTheSceneAndLeavesOneStep)
{
    run("camera; select camera1; flushUndo");
    auto* const slider = valueField("displayGateMaskOpacity").findChild<QSlider*>();
    const std::string opacity = "getAttr cameraShape1.displayGateMaskOpacity";
    slider->setSliderDown(true);
    slider->setValue(200);
    EXPECT_EQ(value(opacity), "0.200000003") << "seen at once";
    slider->setValue(500);
    slider->setSliderDown(false);
    turnEventLoop();
    EXPECT_EQ(value(opacity), "0.5");
    run("undo");
    EXPECT_EQ(value(opacity), "0.6999999881");
    EXPECT_EQ(value("undoInfo -q -undoName"), "");

    slider->setSliderDown(true);
    slider->setValue(200);
    session().script().execute("delete camera1", true, true);  // before the panel has followed
    slider->setValue(300);
    slider->setSliderDown(false);
    turnEventLoop();
    EXPECT_EQ(value("undo; " + opacity), "0.6999999881") << "a drag that came to nothing";
}

TEST_F(Panels, ASliderLeavesAnExactStepWhateverIsUndoneMeanwhile)
{
    run("camera; select camera1");
    auto* const slider = valueField("displayGateMaskOpacity").findChild<QSlider*>();
    const auto drag = [&](const std::function<void()>& meanwhile) {
        slider->setSliderDown(true);
        slider->setValue(200);
        meanwhile();
        slider->setValue(500);
        slider->setSliderDown(false);
        turnEventLoop();
    };
    const kernel::NodePtr shape = session().scene.findOrNull("cameraShape1");
    const auto held = [&] { return shape->plugState(*shape->attribute("displayGateMaskOpacity")); };
    drag([] {});
    run("undo");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(held().value)) << "the default, not a value like it";

    run("setAttr cameraShape1.displayGateMaskOpacity 0.75");
    drag([this] { run("undo"); });
    run("undo");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(held().value)) << "the value was undone";
    run("setAttr cameraShape1.displayGateMaskOpacity 0.75");
    run("select -add persp");
    drag([this] { run("undo"); });
    run("undo");
    EXPECT_EQ(value("getAttr cameraShape1.displayGateMaskOpacity"), "0.75") << "the selection was undone";

    run("setKeyframe -attribute displayGateMaskOpacity -time 1 -value 0.5 cameraShape1; currentTime 1");
    drag([] {});
    EXPECT_TRUE(held().isAhead);
    run("undo");
    EXPECT_FALSE(held().isAhead) << "the curve's again";
}

TEST_F(Panels, AttributeEditorShowsEveryNode)
{
    clickTab(0);
    enterIn(line("translateY"), "7");
    enterIn(line("shearXY"), "0.5");
    EXPECT_EQ(value("getAttr ball.ty") + ' ' + value("getAttr ball.shearXY"), "7 0.5");
    EXPECT_FALSE(find("isHistoricallyInteresting")) << "hidden";
    run("createNode script -n note; select note");
    enterIn(line("before"), "print \"\\n\"");
    EXPECT_EQ(value("getAttr note.before"), "print \"\\n\"");
    forgetLines();
    run("select -all");
    for (const std::string name : {"persp", "perspShape", "time1", "defaultResolution", "defaultRenderGlobals"}) {
        run("select " + name);
        EXPECT_TRUE(find("nodeState")) << name;
    }
    run("select -clear");
    EXPECT_FALSE(find("nodeState"));
    EXPECT_THAT(errors(), testing::IsEmpty());
}

TEST_F(Panels, ATabThatIsClickedTakesOverWhatIsTyped)
{
    QApplication::setActiveWindow(&window);
    line("radius").setFocus();
    line("radius").selectAll();
    type(&line("radius"), "4");
    clickTab(0);
    EXPECT_EQ(value("getAttr ballShape.radius"), "4");
    EXPECT_TRUE(find("translateY"));
    EXPECT_FALSE(find("radius"));
}

// A script that asks the user something turns the event loop, and with it go fields whose node is no longer shown.
TEST_F(Panels, AFieldIsDoneWithItsKeyBeforeTheActionRuns)
{
    clickTab(0);
    bool isInField = false;
    int actions = 0;
    m_onAction = [&] {
        ++actions;
        EXPECT_FALSE(isInField);
        session().script().execute("select box", false, true);
        turnEventLoop();
    };
    isInField = true;
    line("translateY").selectAll();
    type(&line("translateY"), "7\n");
    isInField = false;
    turnEventLoop();
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(value("getAttr ball.ty"), "7");
}

// --- outliner ------------------------------------------------------------------------------------------------------

TEST_F(Panels, OutlinerFollowsTheHierarchy)
{
    EXPECT_EQ(treeText(), "persp top front side ball box");
    run("createNode transform -n group1; parent ball box group1");
    tree().expand(item("group1"));
    EXPECT_EQ(treeText(), "persp top front side group1(ball box)");
    run("rename ball globe; createNode transform -n late -p group1");
    run("delete box");
    EXPECT_EQ(treeText(), "persp top front side group1(globe late)");
    EXPECT_TRUE(tree().isExpanded(item("group1")));
    run("undo");
    EXPECT_EQ(treeText(), "persp top front side group1(globe box late)");
    run("parent -world box; parent globe box");
    EXPECT_EQ(treeText(), "persp top front side group1(late) box(globe)");
    tree().actions().front()->trigger();  // shapes
    turnEventLoop();
    EXPECT_EQ(treeText(item("box")), "boxShape globe(globeShape)");
    run("file -force -new");
    EXPECT_EQ(treeText(), "persp(perspShape) top(topShape) front(frontShape) side(sideShape)");
}

TEST_F(Panels, OutlinerSelectsBothWays)
{
    run("select ballShape");
    EXPECT_TRUE(tree().selectionModel()->isSelected(item("ball"))) << "through its transform";
    run("select box");
    EXPECT_FALSE(tree().selectionModel()->isSelected(item("ball")));
    tree().selectionModel()->select(item("ball"), QItemSelectionModel::Select);
    turnEventLoop();
    EXPECT_EQ(value("ls -sl"), "box ball") << "the one that was first stays first";
    tree().selectionModel()->select(item("persp"), QItemSelectionModel::ClearAndSelect);
    turnEventLoop();
    EXPECT_EQ(value("ls -sl"), "persp");
    run("undo");
    EXPECT_EQ(value("ls -sl"), "box ball");
    EXPECT_TRUE(tree().selectionModel()->isSelected(item("box")));
    run("delete");
    EXPECT_EQ(value("undoInfo -q -undoName"), "delete") << "rows that go select nothing";
}

TEST_F(Panels, OutlinerRenamesAndParents)
{
    tree().model()->setData(item("ball"), "globe");
    turnEventLoop();
    EXPECT_EQ(value("objExists globe"), "1");
    EXPECT_FALSE(item("persp").flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(item("persp").data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(item("globe").data(Qt::ForegroundRole).isValid());
    run("setAttr globe.template 1; select globe");
    EXPECT_TRUE(item("globe").data(Qt::ForegroundRole).isValid());

    tree().model()->dropMimeData(nullptr, Qt::MoveAction, -1, -1, item("box"));
    turnEventLoop();
    EXPECT_EQ(value("ls -long globe"), "|box|globe");
    tree().model()->dropMimeData(nullptr, Qt::MoveAction, -1, -1, item("box"));
    tree().model()->dropMimeData(nullptr, Qt::MoveAction, -1, -1, item("globe"));
    EXPECT_THAT(errors(), testing::IsEmpty());
    tree().model()->dropMimeData(nullptr, Qt::MoveAction, -1, -1, QModelIndex());
    turnEventLoop();
    EXPECT_EQ(value("ls -long globe"), "|globe");
}

// A script that asks the user something turns the event loop, and with it goes the editor of the name.
TEST_F(Panels, OutlinerIsDoneWithItsRowBeforeTheActionRuns)
{
    bool isInView = true;
    int actions = 0;
    m_onAction = [&] {
        ++actions;
        EXPECT_FALSE(isInView);
    };
    tree().model()->setData(item("box"), "crate");
    tree().model()->dropMimeData(nullptr, Qt::MoveAction, -1, -1, item("box"));
    isInView = false;
    turnEventLoop();
    EXPECT_EQ(actions, 2);
}

// --- render settings -----------------------------------------------------------------------------------------------

TEST_F(Panels, RenderSettingsSetTheSizeAsOneStep)
{
    auto* const presets = find<QComboBox>("resolutionPresets");
    const std::string size = "`getAttr defaultResolution.width` + \" \" + `getAttr defaultResolution.height` + \" \""
                             " + `getAttr defaultResolution.deviceAspectRatio`";
    const auto choose = [&](const char* name) {
        emit presets->activated(presets->findText(name));
        turnEventLoop();
    };
    choose("640 x 480");
    EXPECT_EQ(value(size), "640 480 1.333333373");
    enterIn(line("resolution_width"), "960");
    EXPECT_EQ(value(size), "960 480 2");
    EXPECT_EQ(presets->currentText(), "Custom");
    run("undo");
    EXPECT_EQ(value(size), "640 480 1.333333373");
    EXPECT_EQ(presets->currentText(), "640 x 480");
    for (const char* bad : {"0", "-5", "tall"}) {
        forgetLines();
        enterIn(line("resolution_height"), bad);
        EXPECT_EQ(errors().size(), 1u) << bad;
        EXPECT_EQ(value(size), "640 480 1.333333373") << bad;
        EXPECT_EQ(line("resolution_height").text(), "480") << bad;
    }
    enterIn(line("resolution_width"), "1e3");
    enterIn(line("resolution_height"), "500.7");
    EXPECT_EQ(value(size), "1000 500 2");
    run("setAttr defaultResolution.width 12345678");
    enterIn(line("resolution_height"), "1000.0");
    EXPECT_EQ(value(size), "12345678 1000 12345.67773");
}

// --- docks ---------------------------------------------------------------------------------------------------------
