#include "support/WindowFixture.h"
#include "ui/PaneLayout.h"

namespace {

class LayoutsTest : public WindowFixture {
protected:
    /// A window of as many buttons in panes of any size: a, b, c ...
    void makePanes(int count, const std::string& flags = "")
    {
        run("window w; paneLayout " + flags + " panes");
        for (int i = 0; i < count; ++i) {
            const std::string name(1, char('a' + i));
            run("button " + name);
            widget(name.c_str())->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
            widget(name.c_str())->setMinimumSize(1, 1);
        }
        show("w");
    }
    /// Shows the window at a fixed size, so that its layouts are laid out.
    void show(const char* name)
    {
        widget(name)->resize(400, 300);
        widget(name)->show();
        QCoreApplication::processEvents();
    }
    /// A widget's place in its window: centre as "left top", "right bottom", "middle middle".
    std::string place(const char* name, const char* windowName)
    {
        QWidget* const whole = widget(windowName);
        const QPoint centre = widget(name)->mapTo(whole, widget(name)->rect().center());
        const auto third = [](int at, int length, const char* low, const char* high) {
            return at * 5 < length * 2 ? low : at * 5 > length * 3 ? high : "middle";
        };
        return std::string(third(centre.x(), whole->width(), "left", "right")) + ' '
             + third(centre.y(), whole->height(), "top", "bottom");
    }
};

}  // namespace

TEST_F(LayoutsTest, PanesAreCountedClockwiseFromTheUpperLeft)
{
    makePanes(4);
    const struct {
        const char* configuration;
        std::vector<const char*> places;
    } cases[] = {
        {"single", {"middle middle"}},
        {"horizontal2", {"middle top", "middle bottom"}},
        {"vertical2", {"left middle", "right middle"}},
        {"vertical3", {"left middle", "middle middle", "right middle"}},
        {"top3", {"left top", "right top", "middle bottom"}},
        {"bottom3", {"middle top", "right bottom", "left bottom"}},
        {"left3", {"left top", "right middle", "left bottom"}},
        {"right3", {"left middle", "right top", "right bottom"}},
        {"bottom4", {"middle top", "right bottom", "middle bottom", "left bottom"}},
        {"quad", {"left top", "right top", "right bottom", "left bottom"}},
    };
    const char* const names[] = {"a", "b", "c", "d"};
    for (const auto& c : cases) {
        EXPECT_TRUE(run(std::string("paneLayout -e -configuration ") + c.configuration + " panes"));
        QCoreApplication::processEvents();
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(widget(names[i])->isVisible(), i < c.places.size()) << c.configuration << ' ' << names[i];
            if (i < c.places.size()) {
                EXPECT_EQ(place(names[i], "w"), c.places[i]) << c.configuration << ' ' << names[i];
            }
        }
    }
    EXPECT_FALSE(run("paneLayout -e -configuration triple panes"));
    EXPECT_EQ(value("paneLayout -q -configuration panes"), "quad");
}

TEST_F(LayoutsTest, PanesKeepTheSizesTheyWereGivenBeforeTheirChildrenCame)
{
    makePanes(2, "-configuration vertical2 -paneSize 1 25 100");
    EXPECT_NEAR(widget("a")->width(), 100, 10);
    run("paneLayout -e -separatorThickness 12 panes");
    QCoreApplication::processEvents();
    EXPECT_EQ(widget("b")->mapTo(widget("w"), QPoint()).x() - widget("a")->width(), 12);
    EXPECT_NEAR(widget("a")->width(), 100, 10);
    run("paneLayout -e -configuration horizontal2 panes");
    QCoreApplication::processEvents();
    EXPECT_NEAR(widget("a")->height(), 150, 10) << "another arrangement starts evenly";
}

TEST_F(LayoutsTest, ColumnsAndRowsSizeTheirChildren)
{
    run("window w; columnLayout column; button -label x narrow; columnLayout -adjustableColumn 1 -parent column inner;"
        "setParent ..; rowLayout -parent column -columnWidth3 30 50 70 -adjustableColumn 3 row;"
        "button a; button b; button c");
    show("w");
    EXPECT_LT(widget("narrow")->width(), 200);
    run("columnLayout -e -adjustableColumn 1 column");
    QCoreApplication::processEvents();
    EXPECT_GT(widget("narrow")->width(), 350);
    EXPECT_EQ(widget("a")->width(), 30);
    EXPECT_EQ(widget("b")->width(), 50);
    EXPECT_LT(widget("a")->x(), widget("b")->x());
    EXPECT_LT(widget("narrow")->y(), widget("row")->y());
}

TEST_F(LayoutsTest, FormsPlaceChildrenByTheirEdges)
{
    run("window w; formLayout form; button a; button b; button c;"
        "formLayout -e -attachForm a left 10 -attachForm a top 5 -attachPosition a right 2 50 "
        "-attachControl b left 4 a -attachForm b right 10 -attachForm b top 5 "
        "-attachForm c left 0 -attachForm c right 0 -attachForm c bottom 0 -attachControl c top 6 a form");
    show("w");
    const QRect form = widget("form")->rect();
    const QRect a = widget("a")->geometry(), b = widget("b")->geometry(), c = widget("c")->geometry();
    EXPECT_EQ(a.topLeft(), QPoint(10, 5));
    EXPECT_EQ(a.right() + 1, form.width() / 2 - 2);
    EXPECT_EQ(b.left(), a.right() + 1 + 4);
    EXPECT_EQ(b.right() + 1, form.width() - 10);
    EXPECT_EQ(c, QRect(0, a.bottom() + 1 + 6, form.width(), form.height() - (a.bottom() + 1 + 6)));
    EXPECT_FALSE(run("formLayout -e -attachForm a sideways 1 form"));
    EXPECT_FALSE(run("formLayout -e -attachForm none left 1 form"));
    delete widget("a");
    EXPECT_TRUE(run("formLayout -e -attachForm b left 1 form")) << "an edge may be attached to what is gone";
    EXPECT_EQ(value("formLayout -q -childArray form"), "b c");
}
