#include "support/ToolFixture.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "settings/PenState.h"

#include <QCoreApplication>
#include <QCursor>
#include <QTabletEvent>

#include <cmath>
#include <limits>

namespace {

/// The draw tool, and a tablet whose pens touch the views.
class PenContactTest : public ToolFixture {
protected:
    enum Does { Touches, Moves, Lifts, ButtonDown, ButtonUp };
    struct Step {
        Does what;
        double pressure = 0;
    };

    PenContactTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        run("tqLmDrawCtx drawTool; setToolTo drawTool");
        QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(100, 100)));
        Preferences::instance().setActiveTool(ToolType::Pencil);
        Preferences::instance().setTabletEnabled(ToolType::Pencil, true);
    }
    ~PenContactTest() override
    {
        run("setToolTo selectSuperContext");
        ThreadManager::destroy();
    }

    void pen(Does what, double pressure, QTabletEvent::PointerType end = QTabletEvent::Pen, qint64 id = 1)
    {
        const QEvent::Type types[] = {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease};
        QTabletEvent event(types[what], QPointF(), QPointF(), QTabletEvent::Stylus, end, pressure, 0, 0, 0, 0, 0,
                           Qt::NoModifier, id, Qt::LeftButton, Qt::LeftButton);
        event.ignore();
        QCoreApplication::sendEvent(views.persp().widget(), &event);
        EXPECT_FALSE(event.isAccepted()) << "else no mouse event follows";
    }
    void take(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            switch (step.what) {
            case ButtonDown: press(); break;
            case ButtonUp: release(); break;
            default: pen(step.what, step.pressure);
            }
        }
    }
    ToolType toolOfAPress()
    {
        press();
        const ActiveStroke* stroke = drawing().stroke("persp");
        return stroke ? stroke->tool : ToolType::Transform;
    }
};

TEST_F(PenContactTest, WeighsAStrokeFromItsFirstPointWhateverComesFirst)
{
    const std::vector<Step> orders[] = {
        {{Touches, 0.3}, {ButtonDown}},
        {{ButtonDown}, {Touches, 0.3}},
        {{Touches, 0}, {ButtonDown}, {Moves, 0.3}},
        {{ButtonDown}, {Touches, 0}, {Moves, 0.3}},
        {{ButtonDown}, {Moves, 0.3}},  // the touch itself went to another view
        {{Touches, 0.3}, {ButtonDown}, {Lifts, 0}},
        {{Touches, 0.3}, {ButtonDown}, {Lifts, 0.9}},
    };
    for (const auto& order : orders) {
        take(order);
        ThreadManager::instance().stop();
        ASSERT_NE(drawing().stroke("persp"), nullptr);
        ASSERT_FALSE(drawing().stroke("persp")->points.isEmpty());
        for (const StrokePoint& point : drawing().stroke("persp")->points) {
            EXPECT_FLOAT_EQ(point.opacity, 0.3f) << "order " << &order - orders;
        }
        release();
        EXPECT_EQ(penState::pressure(), 1.0f);
    }
}

TEST_F(PenContactTest, TheOtherEndErasesFromTheFirstPointEvenWhenHeardAfterTheButton)
{
    Preferences& preferences = Preferences::instance();
    preferences.setToolSize(ToolType::Eraser, 33);
    preferences.setToolOpacity(ToolType::Eraser, 50);
    preferences.setToolHardness(ToolType::Eraser, 70);
    preferences.setTabletEnabled(ToolType::Eraser, true);
    QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(400, 50)));
    take({{ButtonDown}, {ButtonUp}});
    const QString before = pixels("persp");
    QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(100, 100)));
    press();
    ThreadManager::instance().OnMousePositionChanged(QPoint(150, 400), 3, 1.0f, 1.0f);
    ASSERT_EQ(drawing().stroke("persp")->tool, ToolType::Pencil);
    const QVector<StrokePoint> drawn = drawing().stroke("persp")->points;
    ASSERT_NE(drawing().composite("persp"), nullptr);
    pen(Touches, 0.3, QTabletEvent::Eraser);
    ThreadManager::instance().stop();
    const ActiveStroke& erasing = *drawing().stroke("persp");
    EXPECT_EQ(erasing.tool, ToolType::Eraser);
    ASSERT_GE(erasing.points.size(), drawn.size());
    for (int i = 0; i < erasing.points.size(); ++i) {
        EXPECT_EQ(erasing.points[i].width, 33);
        EXPECT_FLOAT_EQ(erasing.points[i].opacity, 0.15f);
        EXPECT_FLOAT_EQ(erasing.points[i].hardness, 0.7f);
        if (i < drawn.size()) {
            EXPECT_EQ(erasing.points[i].position, drawn[i].position);
        }
    }
    release();
    EXPECT_THAT(commits, testing::ElementsAre("-la 0 -fa persp", "persp"));
    EXPECT_EQ(pixels("persp"), before) << "no ink, and nothing to rub out there";
    EXPECT_EQ(toolOfAPress(), ToolType::Pencil);
}

TEST_F(PenContactTest, NothingOfAPenIsLeftToTheMouseAfterIt)
{
    const std::vector<Step> contacts[] = {
        {{Touches, 0.3}, {ButtonDown}, {Lifts, 0.3}, {ButtonUp}},
        {{Touches, 0.3}, {ButtonDown}, {ButtonUp}, {Moves, 0.2}, {Lifts, 0.2}},
        {{ButtonDown}, {Touches, 0.3}, {ButtonUp}, {Lifts, 0}, {Moves, 0}},
        {{Touches, 0.3}, {Moves, 0.4}, {Lifts, 0.1}},  // of which the tool heard nothing
        {{Moves, 0.3}, {Moves, 0}},
    };
    for (const auto& contact : contacts) {
        take(contact);
        EXPECT_EQ(penState::pressure(), 1.0f) << "contact " << &contact - contacts;
        press();
        EXPECT_EQ(penState::pressure(), 1.0f) << "contact " << &contact - contacts;
        release();
    }
    pen(Touches, 0.3, QTabletEvent::Eraser);
    EXPECT_EQ(toolOfAPress(), ToolType::Eraser);
    release();
    pen(Moves, 0.2, QTabletEvent::Eraser);
    pen(Lifts, 0.2, QTabletEvent::Eraser);
    pen(Moves, 0, QTabletEvent::Eraser);
    EXPECT_EQ(toolOfAPress(), ToolType::Pencil);
    EXPECT_EQ(Preferences::instance().activeTool(), ToolType::Pencil);
}

TEST_F(PenContactTest, AFaultyPressureSaysNothingOrCountsAsTheNearestThereIs)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double pressed;
        float counts;
    } cases[] = {{0.7, 0.82f}, {0, 0.82f},  {-1, 0.82f}, {-infinity, 0.82f}, {std::nan(""), 0.82f}, {1e-300, 0},
                 {1.0001, 1},  {0.3, 0.3f}, {2, 1},      {1e300, 1},         {0.5, 0.5f},           {infinity, 1}};
    take({{Touches, 0.1}, {ButtonDown}});
    for (const auto& c : cases) {
        pen(Moves, c.pressed);
        EXPECT_FLOAT_EQ(penState::pressure(), c.counts) << c.pressed;
    }
}

TEST_F(PenContactTest, IsThatOfOnePen)
{
    take({{Touches, 0.3}, {ButtonDown}});
    for (const Does does : {Touches, Moves, Lifts}) {
        pen(does, 0.9, QTabletEvent::Eraser, 2);
        EXPECT_FLOAT_EQ(penState::pressure(), 0.3f);
        EXPECT_FALSE(penState::isEraserTip());
    }
    take({{Lifts, 0}, {ButtonUp}});
    pen(Touches, 0.4, QTabletEvent::Eraser, 2);
    EXPECT_FLOAT_EQ(penState::pressure(), 0.4f);
    EXPECT_EQ(toolOfAPress(), ToolType::Eraser);
}

TEST_F(PenContactTest, EndsWithTheToolAndWithTheView)
{
    take({{Touches, 0.3}, {ButtonDown}});
    run("setToolTo selectSuperContext");
    EXPECT_EQ(penState::pressure(), 1.0f);
    pen(Touches, 0.3);
    EXPECT_EQ(penState::pressure(), 1.0f);
    run("setToolTo drawTool");
    take({{Touches, 0.3}, {ButtonDown}});
    views.activate(views.top());
    views.persp().destroyWidget();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(penState::pressure(), 1.0f);
}

}  // namespace
