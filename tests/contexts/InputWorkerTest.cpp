#include "contexts/InputWorker.h"

#include "settings/PenState.h"

#include <gtest/gtest.h>

namespace {

const SamplingOptions kOptions = {QRect(100, 200, 640, 480), 7, 0.8f, 0.5f, false};

struct Sample {
    QPoint position;
    int width;
    float opacity;
    float hardness;
};

/// A worker on this thread, its pointer where the test puts it, and what it has sent.
struct Polled {
    explicit Polled(const SamplingOptions& options = kOptions)
        : gate(std::make_shared<SampleGate>()), worker(
                                                    options, [this] { return pointer; }, gate)
    {
        QObject::connect(&worker, &InputWorker::MousePositionChanged,
                         [this](const QPoint& position, int width, float opacity, float hardness) {
                             samples.push_back({position, width, opacity, hardness});
                         });
    }

    QPoint pointer{150, 300};
    std::vector<Sample> samples;
    std::shared_ptr<SampleGate> gate;
    InputWorker worker;
};

struct InputWorkerTest : testing::Test {
    ~InputWorkerTest() override { penState::reset(); }
};

TEST_F(InputWorkerTest, BeginsWithTwoSamplesOnePixelApartCountedFromTheLowerLeft)
{
    Polled polled;
    polled.worker.Poll();
    ASSERT_EQ(polled.samples.size(), 2u);
    EXPECT_EQ(polled.samples[0].position, QPoint(50, 381));
    EXPECT_EQ(polled.samples[1].position, QPoint(51, 381));
    EXPECT_EQ(polled.samples[0].width, 7);
    EXPECT_FLOAT_EQ(polled.samples[0].opacity, 0.8f);
    EXPECT_FLOAT_EQ(polled.samples[0].hardness, 0.5f);
}

TEST_F(InputWorkerTest, BeginsWhereTheButtonWentDownWhenThePointerHasMovedOn)
{
    const struct {
        QPoint pressed;
        QList<QPoint> positions;
    } cases[] = {
        {QPoint(20, 300), {QPoint(19, 300), QPoint(20, 300), QPoint(51, 381)}},
        {QPoint(52, 380), {QPoint(50, 381), QPoint(51, 381)}},  // the same place, rounded another way
    };
    for (const auto& c : cases) {
        Polled polled;
        polled.worker.setPressPosition(c.pressed);
        polled.worker.Poll();
        QList<QPoint> positions;
        for (const Sample& sample : polled.samples) {
            positions << sample.position;
        }
        EXPECT_EQ(positions, c.positions);
    }
}

TEST_F(InputWorkerTest, SendsASampleForEachMoveAndNoneWhileThePointerRests)
{
    Polled polled;
    polled.worker.Poll();
    polled.worker.Poll();
    EXPECT_EQ(polled.samples.size(), 2u);
    polled.pointer += QPoint(3, 2u);
    polled.worker.Poll();
    polled.worker.Poll();
    ASSERT_EQ(polled.samples.size(), 3u);
    EXPECT_EQ(polled.samples[2].position, QPoint(54, 379));
}

TEST_F(InputWorkerTest, WeighsOpacityByThePressureOfEachPollWhereTheToolSaysSo)
{
    SamplingOptions withTablet = kOptions;
    withTablet.tabletEnabled = true;
    Polled pressed(withTablet);
    Polled unpressed;
    penState::setPressure(0.5f);
    pressed.worker.Poll();
    unpressed.worker.Poll();
    EXPECT_FLOAT_EQ(pressed.samples.at(1).opacity, 0.4f);
    EXPECT_FLOAT_EQ(unpressed.samples.at(1).opacity, 0.8f);

    penState::setPressure(0.25f);
    pressed.pointer += QPoint(1, 0u);
    pressed.worker.Poll();
    EXPECT_FLOAT_EQ(pressed.samples.at(2).opacity, 0.2f);
}

TEST_F(InputWorkerTest, SendsNothingWithoutAViewOrThroughAClosedGate)
{
    SamplingOptions nowhere = kOptions;
    nowhere.view = QRect();
    Polled polled(nowhere);
    polled.worker.Poll();
    EXPECT_EQ(polled.samples.size(), 0u);

    Polled closed;
    closed.gate->close();
    closed.worker.Poll();
    EXPECT_EQ(closed.samples.size(), 0u);
}

}  // namespace
