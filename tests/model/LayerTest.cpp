#include "model/FrameNumber.h"
#include "support/Dice.h"
#include "support/Drawings.h"
#include "support/PluginFixture.h"

#include <maya/MAnimControl.h>

#include <functional>
#include <limits>

namespace {

constexpr int kNone = 1 << 30;

class LayerTest : public PluginFixture {
protected:
    static void goTo(int frameNumber) { MAnimControl::setCurrentTime(timeOfFrame(frameNumber)); }
    static int numberOf(const Frame* frame) { return frame ? frame->frameNumber() : kNone; }
    template <class Test>
    static std::vector<const Frame*> those(const Layer& layer, Test test)
    {
        std::vector<const Frame*> found;
        for (int i = 0; i < layer.frameCount(); ++i) {
            if (test(*layer.frameAt(i))) {
                found.push_back(layer.frameAt(i));
            }
        }
        return found;
    }
    static std::vector<const Frame*> pointers(const Frames& frames)
    {
        std::vector<const Frame*> found;
        for (const auto& frame : frames) {
            found.push_back(frame.get());
        }
        return found;
    }
    static std::unique_ptr<Layer> layerAt(std::initializer_list<int> numbers)
    {
        return drawings::layer("Ink", numbers);
    }
};

TEST_F(LayerTest, HoldsTheLastKeyAndStepsToTheNeighboursOfTheSceneTime)
{
    const struct {
        QList<int> keys;
        int time;
        int shown;
        int previous;
        int previousWrapped;
        int next;
        int nextWrapped;
    } cases[] = {
        {{1, 5, 10}, -3, kNone, kNone, 10, 1, 1},
        {{1, 5, 10}, 0, kNone, kNone, 10, 1, 1},
        {{1, 5, 10}, 1, 1, kNone, 10, 5, 5},
        {{1, 5, 10}, 2, 1, 1, 1, 5, 5},
        {{1, 5, 10}, 4, 1, 1, 1, 5, 5},
        {{1, 5, 10}, 5, 5, 1, 1, 10, 10},
        {{1, 5, 10}, 6, 5, 5, 5, 10, 10},
        {{1, 5, 10}, 9, 5, 5, 5, 10, 10},
        {{1, 5, 10}, 10, 10, 5, 5, kNone, 1},
        {{1, 5, 10}, 11, 10, 10, 10, kNone, 1},
        {{1, 5, 10}, 99, 10, 10, 10, kNone, 1},
        {{-7, -2, 0}, -8, kNone, kNone, 0, -7, -7},
        {{-7, -2, 0}, -3, -7, -7, -7, -2, -2},
        {{-7, -2, 0}, -2, -2, -7, -7, 0, 0},
        {{-7, -2, 0}, 0, 0, -2, -2, kNone, -7},
        {{4}, 3, kNone, kNone, 4, 4, 4},
        {{4}, 4, 4, kNone, 4, kNone, 4},
        {{4}, 5, 4, 4, 4, kNone, 4},
        {{}, 4, kNone, kNone, kNone, kNone, kNone},
    };
    for (const auto& c : cases) {
        Layer layer;
        for (const int key : c.keys) {
            layer.addFrame(timeOfFrame(key));
        }
        goTo(c.time);
        layer.updateCurrentFrame(c.time);
        SCOPED_TRACE(testing::Message() << c.keys.size() << " keys at time " << c.time);
        EXPECT_EQ(numberOf(layer.currentFrame()), c.shown);
        EXPECT_EQ(numberOf(layer.previousFrame(false)), c.previous);
        EXPECT_EQ(numberOf(layer.previousFrame(true)), c.previousWrapped);
        EXPECT_EQ(numberOf(layer.nextFrame(false)), c.next);
        EXPECT_EQ(numberOf(layer.nextFrame(true)), c.nextWrapped);
    }
}

TEST_F(LayerTest, AKeyedTimeIsNeverReplaced)
{
    const auto layer = layerAt({1, 5});
    auto other = std::make_unique<Frame>(timeOfFrame(5));
    other->setImage(pixels::marked(77));
    EXPECT_EQ(layer->insertFrame(std::move(other)), -1);
    EXPECT_EQ(layer->insertFrame(nullptr), -1);
    EXPECT_EQ(layer->addFrame(timeOfFrame(1)), -1);
    EXPECT_EQ(layer->addFrame(timeOfFrame(3)), 1);
    EXPECT_EQ(layer->frameNumbers(), (QList<int>{1, 3, 5}));
    EXPECT_TRUE(pixels::same(layer->frameAt(2)->image(), pixels::marked(5)));
    EXPECT_TRUE(layer->frameAt(1)->isBlank());
}

TEST_F(LayerTest, InsertingShowsTheFrameOfTheSceneTimeAndTakingThatOfTheTakenFrame)
{
    const auto layer = layerAt({1, 5, 10});
    goTo(6);
    layer->addFrame(timeOfFrame(20));
    EXPECT_EQ(numberOf(layer->currentFrame()), 5);
    EXPECT_EQ(numberOf(layer->takeFrame(timeOfFrame(10)).get()), 10);
    EXPECT_EQ(numberOf(layer->currentFrame()), 5);
    EXPECT_EQ(numberOf(layer->takeFrame(timeOfFrame(1)).get()), 1);
    EXPECT_EQ(layer->currentFrameIndex(), -1) << "as seen from the taken frame";
    EXPECT_EQ(layer->takeFrame(timeOfFrame(1)), nullptr);
}

TEST_F(LayerTest, CopiesAndTakesByExactNumber)
{
    const auto layer = layerAt({1, 5});
    goTo(5);
    EXPECT_EQ(layer->copyFrame(timeOfFrame(4)), nullptr);
    const std::unique_ptr<Frame> copy = layer->copyFrame(timeOfFrame(5));
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->isUnpacked());
    EXPECT_EQ(numberOf(layer->takeFrameAtCurrentTime().get()), 5);
    EXPECT_EQ(layer->takeFrameAtCurrentTime(), nullptr);
    EXPECT_EQ(layer->frameNumbers(), (QList<int>{1}));
}

TEST_F(LayerTest, OnlyWhatChangesThePictureMarksItDirtyAndReadingClears)
{
    const auto layer = layerAt({1, 5});
    goTo(1);
    const struct {
        const char* what;
        void (*change)(Layer&);
        bool dirty;
    } cases[] = {
        {"name", [](Layer& l) { l.setName("x"); }, false},
        {"active", [](Layer& l) { l.setActive(!l.isActive()); }, false},
        {"state", [](Layer& l) { l.setState(kLayerStatic); }, false},
        {"same opacity", [](Layer& l) { l.setOpacity(1.5f); }, false},
        {"other opacity", [](Layer& l) { l.setOpacity(0.5f); }, true},
        {"same visibility", [](Layer& l) { l.setVisible(true); }, false},
        {"hiding", [](Layer& l) { l.setVisible(false); }, true},
        {"showing", [](Layer& l) { l.setVisible(true); }, true},
        {"time within the hold", [](Layer& l) { l.updateCurrentFrame(4); }, false},
        {"time of the next frame", [](Layer& l) { l.updateCurrentFrame(5); }, true},
        {"new image", [](Layer& l) { l.setCurrentImage(pixels::marked(9)); }, true},
        {"retiming",
         [](Layer& l) {
             l.retime({2, 6});
         },
         false},
        {"clearing", [](Layer& l) { l.clearFrames(); }, true},
        {"image without a frame", [](Layer& l) { l.setCurrentImage(pixels::marked(9)); }, false},
    };
    for (const auto& c : cases) {
        layer->imageAtOffset(0);
        EXPECT_FALSE(layer->isDirty());
        c.change(*layer);
        EXPECT_EQ(layer->isDirty(), c.dirty) << c.what;
    }
}

// Many at once against one after the other. 15 frames a second after 24 hide some frames behind others.
TEST_F(LayerTest, ManyFramesAreFoundTakenAndRestoredAsOneByOne)
{
    Dice dice(11);
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        MTime::setUIUnit(MTime::kFilm);
        Layer layer;
        for (int i = dice.between(0, 12); i > 0; --i) {
            layer.addFrame(timeOfFrame(dice.between(-9, 9)));
        }
        MTime::setUIUnit(round % 2 ? MTime::kGames : MTime::kFilm);
        goTo(dice.between(-9, 9));
        layer.updateCurrentFrame(currentFrameNumber());

        const FrameSpan span = {dice.between(-10, 10), dice.between(-10, 10)};
        QList<int> numbers;
        Times times;
        for (int number = -10; number <= 10; ++number) {
            if (dice.oneIn(3)) {
                numbers << number;
                times.push_back(timeOfFrame(number));
            }
        }
        const auto isInSpan = [&](const Frame& frame) { return contains(span, frame.frameNumber()); };
        const auto isNumbered = [&](const Frame& frame) { return numbers.contains(frame.frameNumber()); };
        const auto isAt = [&](const Frame& frame) { return std::count(times.begin(), times.end(), frame.time()) > 0; };
        const auto isFound = [&](const Frame& frame) { return layer.frameNumbered(frame.frameNumber()) == &frame; };
        EXPECT_EQ(layer.framesIn(span), those(layer, [&](const Frame& f) { return isInSpan(f) && isFound(f); }));
        EXPECT_EQ(layer.framesNumbered(numbers),
                  those(layer, [&](const Frame& f) { return isNumbered(f) && isFound(f); }));

        const struct {
            std::function<bool(const Frame&)> isTaken;
            std::function<Frames()> take;
        } ways[] = {{isInSpan, [&] { return layer.takeFramesIn(span); }},
                    {isNumbered, [&] { return layer.takeFramesNumbered(numbers); }},
                    {isAt, [&] { return layer.takeFramesAt(times); }}};
        for (const auto& way : ways) {
            const auto all = those(layer, [](const Frame&) { return true; });
            const auto toTake = those(layer, way.isTaken);
            const auto toStay = those(layer, [&](const Frame& frame) { return !way.isTaken(frame); });
            const Frame* const shown = layer.currentFrame();
            Frames taken = way.take();
            EXPECT_EQ(pointers(taken), toTake);
            EXPECT_EQ(those(layer, [](const Frame&) { return true; }), toStay);
            std::shuffle(taken.begin(), taken.end(), std::minstd_rand(round));
            for (const Frame* refused : all) {
                taken.push_back(std::make_unique<Frame>(refused->time()));
            }
            layer.restoreFrames(std::move(taken));
            EXPECT_EQ(those(layer, [](const Frame&) { return true; }), all);
            EXPECT_EQ(layer.currentFrame(), shown);
        }
    }
}

TEST_F(LayerTest, AListLeftOutOfOrderIsSearchedWholeAndPutInOrderByTheNextFrames)
{
    const auto layer = layerAt({1, 2, 3, 4});
    layer->retime({7, 2, 9, 4});
    EXPECT_EQ(layer->framesIn({2, 5}).size(), 2u);
    EXPECT_EQ(layer->framesNumbered({4, 7}).size(), 2u);
    Frames taken = layer->takeFramesIn({2, 8});
    EXPECT_EQ(layer->frameNumbers(), QList<int>{9});
    layer->restoreFrames(std::move(taken));
    EXPECT_EQ(layer->frameNumbers(), (QList<int>{2, 4, 7, 9}));
}

TEST_F(LayerTest, OpacityStaysWithinItsRange)
{
    Layer layer;
    layer.setOpacity(-2);
    EXPECT_EQ(layer.opacity(), 0.0f);
    layer.setOpacity(1.5f);
    EXPECT_EQ(layer.opacity(), 1.0f);
    layer.setOpacity(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(layer.opacity(), 0.0f);
}

// 15 frames a second after 24 give 8 and 9 the number 5, and 10 and 11 the number 6.
TEST_F(LayerTest, FramesThatShareANumberInASlowerUnitAreFoundByTheFirstAndComeBack)
{
    const std::unique_ptr<Layer> layer = drawings::layer("Ink", {1, 8, 9, 10, 11});
    EXPECT_EQ(layer->hiddenFrameCount(), 0);
    MTime::setUIUnit(MTime::kGames);
    EXPECT_EQ(layer->frameNumbers(), (QList<int>{0, 5, 5, 6, 6}));
    EXPECT_EQ(layer->hiddenFrameCount(), 2);
    EXPECT_EQ(layer->frameNumbered(5), layer->frameAt(1));
    const struct {
        int time;
        int shown;
    } cases[] = {{-1, -1}, {0, 0}, {4, 0}, {5, 1}, {6, 3}, {99, 3}};
    for (const auto& c : cases) {
        layer->updateCurrentFrame(c.time);
        EXPECT_EQ(layer->currentFrameIndex(), c.shown) << "at time " << c.time;
    }
    layer->updateCurrentFrame(5);
    EXPECT_EQ(layer->pictureIdAtOffset(1), layer->frameAt(3)->picture().id());
    layer->updateCurrentFrame(6);
    EXPECT_EQ(layer->pictureIdAtOffset(-1), layer->frameAt(1)->picture().id());
    EXPECT_EQ(layer->pictureIdAtOffset(-2), layer->frameAt(0)->picture().id());
    EXPECT_EQ(layer->pictureIdAtOffset(1), 0u);
    EXPECT_EQ(layer->addFrame(timeOfFrame(6)), -1);
    const std::unique_ptr<Frame> taken = layer->takeFrame(timeOfFrame(5));
    EXPECT_EQ(layer->hiddenFrameCount(), 1);
    MTime::setUIUnit(MTime::kFilm);
    EXPECT_EQ(taken->frameNumber(), 8);
    EXPECT_EQ(layer->frameNumbers(), (QList<int>{1, 9, 10, 11}));
    EXPECT_EQ(layer->hiddenFrameCount(), 0);
}

}  // namespace
