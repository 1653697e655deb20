#include "contexts/InputWorker.h"

#include "settings/PenState.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const SamplingOptions kOptions = {7, 0.8f, 0.5f, false};
const QRect kView(100, 200, 640, 480);

struct Sample {
    QPoint position;
    int width;
    float opacity;
    float hardness;
};

/// A worker on this thread, its pointer where the test puts it, and what it has sent.
struct Polled {
    explicit Polled(const SamplingOptions& options = kOptions)
        : gate(std::make_shared<SampleGate>(kView, options)), worker(
                                                                  [this] {
                                                                      return PointerSighting{pointer, SampleTime()};
                                                                  },
                                                                  gate)
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

TEST_F(InputWorkerTest, HoldsWhatAPenDriverMayNotSayWithinNoneAndFull)
{
    SamplingOptions options = kOptions;
    options.opacity = 1.0f;
    options.tabletEnabled = true;
    const float infinite = std::numeric_limits<float>::infinity();
    const struct {
        float pressure, opacity;
    } cases[] = {{-0.5f, 0}, {0, 0}, {1.5f, 1}, {infinite, 1}, {-infinite, 0}, {std::nanf(""), 1}};
    for (const auto& c : cases) {
        Polled polled(options);
        penState::setPressure(c.pressure);
        polled.worker.Poll();
        EXPECT_EQ(polled.samples.at(1).opacity, c.opacity) << c.pressure;
    }
}

TEST_F(InputWorkerTest, PlacesBeyondAnyScreenAreHeldWithinWhatCanBeReckonedWith)
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    Polled polled;
    for (const QPoint& place : {QPoint(most, most), QPoint(least, least), QPoint(-5000, 5000)}) {
        polled.pointer = place;
        polled.worker.Poll();
    }
    const int far = 1 << 24;
    ASSERT_EQ(polled.samples.size(), 4u);
    EXPECT_EQ(polled.samples[1].position, QPoint(far, -far));
    EXPECT_EQ(polled.samples[2].position, QPoint(-far, far));
    EXPECT_EQ(polled.samples[3].position, QPoint(-5099, -4319));
}

TEST_F(InputWorkerTest, SendsNothingWithoutAViewOrThroughAClosedGate)
{
    for (const QRect& nowhere : {QRect(), QRect(100, 200, 640, 0)}) {
        Polled polled;
        polled.gate->moveView(nowhere);
        polled.worker.Poll();
        EXPECT_EQ(polled.samples.size(), 0u);
    }

    Polled closed;
    closed.gate->close();
    closed.worker.Poll();
    EXPECT_EQ(closed.samples.size(), 0u);
}

}  // namespace
