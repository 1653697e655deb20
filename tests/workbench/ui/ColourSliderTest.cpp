#include "ui/ColourSlider.h"
#include "support/WindowFixture.h"
#include "ui/ColourSwatch.h"

#include <QColorDialog>
#include <QLabel>
#include <QPointer>
#include <QSlider>

namespace {

class ColourSliderTest : public WindowFixture {
protected:
    ColourSliderTest()
    {
        run("window tools; columnLayout column; colorSliderGrp -label Ink ink; string $log;"
            "colorSliderGrp -e -changeCommand \"$log += \\\"c \\\"\" -dragCommand \"$log += \\\"d \\\"\" ink;"
            "showWindow tools");
    }
    std::string log() { return value("$copy = $log"); }
    QSlider* slider() { return widget("ink")->findChild<QSlider*>(); }
    ui::ColourSwatch* swatch() { return widget("ink")->findChild<ui::ColourSwatch*>(); }
    kernel::DoubleArray rgb() { return std::get<kernel::DoubleArray>(evaluate("colorSliderGrp -q -rgbValue ink")); }
};

}  // namespace

TEST_F(ColourSliderTest, KeepsTheColourItIsGivenAndTellsNobody)
{
    EXPECT_TRUE(run("colorSliderGrp -e -rgbValue 0.1 0.6 0.35 ink"));
    EXPECT_EQ(rgb(), (kernel::DoubleArray{0.1, 0.6, 0.35}));
    EXPECT_NEAR(slider()->value() / double(slider()->maximum()), 0.6, 0.001);
    EXPECT_EQ(swatch()->colour().name(), "#1a9959");
    run("colorSliderGrp -e -rgbValue 2 -1 0 ink");
    EXPECT_EQ(rgb(), (kernel::DoubleArray{1, 0, 0}));
    run("colorSliderGrp -e -hsvValue 120 1 0.5 ink");
    EXPECT_NEAR(rgb()[1], 0.5, 0.001);
    EXPECT_NEAR(std::get<kernel::DoubleArray>(evaluate("colorSliderGrp -q -hsvValue ink"))[0], 120, 0.1);
    EXPECT_EQ(log(), "");
}

TEST_F(ColourSliderTest, DraggingChangesTheBrightnessAndTellsOfIt)
{
    run("colorSliderGrp -e -rgbValue 0.2 0.4 0.8 ink");
    slider()->setSliderDown(true);
    slider()->setValue(0);
    slider()->setValue(slider()->maximum() / 2);
    EXPECT_EQ(log(), "d d ");
    slider()->setSliderDown(false);
    EXPECT_EQ(log(), "d d c ");
    EXPECT_NEAR(rgb()[0], 0.125, 0.001) << "the hue survives the dark end";
    EXPECT_NEAR(rgb()[2], 0.5, 0.001);
    slider()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(log(), "d d c c ");
}

TEST_F(ColourSliderTest, TheSwatchOpensADialogWhoseColourIsTaken)
{
    const auto open = [this] {
        swatch()->click();
        return widget("ink")->findChild<QColorDialog*>();
    };
    QPointer<QColorDialog> dialog = open();
    ASSERT_FALSE(dialog.isNull());
    dialog->reject();
    EXPECT_EQ(log(), "");
    deliverDeletions();
    EXPECT_TRUE(dialog.isNull());
    dialog = open();
    dialog->setCurrentColor(QColor(255, 0, 51));
    dialog->accept();
    EXPECT_EQ(log(), "c ");
    EXPECT_NEAR(rgb()[2], 0.2, 0.001);
}

TEST_F(ColourSliderTest, ColumnsOfWidthZeroAreHidden)
{
    EXPECT_TRUE(run("colorSliderGrp -columnWidth3 0 40 0 -label Hidden small"));
    auto* const small = widget("small");
    EXPECT_TRUE(small->findChild<QLabel*>()->isHidden());
    EXPECT_TRUE(small->findChild<QSlider*>()->isHidden());
    EXPECT_EQ(small->findChild<ui::ColourSwatch*>()->width(), 40);
    run("colorSliderGrp -e -label Still small");
    EXPECT_TRUE(small->findChild<QLabel*>()->isHidden());
    EXPECT_FALSE(slider()->isHidden());
    run("colorSliderGrp -e -columnWidth 3 0 ink");
    EXPECT_TRUE(slider()->isHidden());
}

TEST_F(ColourSliderTest, AScriptMayDeleteTheControlItIsCalledFrom)
{
    run("colorSliderGrp -e -dragCommand \"deleteUI tools\" ink");
    QSlider* const dragged = slider();
    dragged->setSliderDown(true);
    dragged->setValue(10);
    EXPECT_EQ(value("window -exists tools"), "0");
    dragged->setSliderDown(false);
    EXPECT_EQ(log(), "") << "a control that is not there any more says nothing";
    deliverDeletions();
    EXPECT_TRUE(errors().empty()) << lastError();
}
