#include "contexts/InputWorker.h"

#include "settings/PenState.h"

#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

namespace {

const SamplingOptions kOptions = {QRect(100, 200, 640, 480), 7, 0.8f, 0.5f, false};

/// A worker on this thread, its pointer where the test puts it.
struct Polled {
    explicit Polled(const SamplingOptions& options = kOptions)
        : worker(
            options, [this] { return pointer; }, std::make_shared<SampleGate>()),
          samples(&worker, SIGNAL(MousePositionChanged(const QPoint&, int, float, float)))
    {}

    QPoint position(int index) const { return samples.at(index).at(0).toPoint(); }
    float opacity(int index) const { return samples.at(index).at(2).toFloat(); }

    QPoint pointer{150, 300};
    InputWorker worker;
    QSignalSpy samples;
};

struct InputWorkerTest : testing::Test {
    ~InputWorkerTest() override { penState::reset(); }
};

TEST_F(InputWorkerTest, BeginsWithTwoSamplesOnePixelApartCountedFromTheLowerLeft)
{
    Polled polled;
    polled.worker.Poll();
    ASSERT_EQ(polled.samples.count(), 2);
    EXPECT_EQ(polled.position(0), QPoint(50, 381));
    EXPECT_EQ(polled.position(1), QPoint(51, 381));
    EXPECT_EQ(polled.samples.at(0).at(1).toInt(), 7);
    EXPECT_FLOAT_EQ(polled.opacity(0), 0.8f);
    EXPECT_FLOAT_EQ(polled.samples.at(0).at(3).toFloat(), 0.5f);
}

TEST_F(InputWorkerTest, SendsASampleForEachMoveAndNoneWhileThePointerRests)
{
    Polled polled;
    polled.worker.Poll();
    polled.worker.Poll();
    EXPECT_EQ(polled.samples.count(), 2);
    polled.pointer += QPoint(3, 2);
    polled.worker.Poll();
    polled.worker.Poll();
    ASSERT_EQ(polled.samples.count(), 3);
    EXPECT_EQ(polled.position(2), QPoint(54, 379));
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
    EXPECT_FLOAT_EQ(pressed.opacity(1), 0.4f);
    EXPECT_FLOAT_EQ(unpressed.opacity(1), 0.8f);

    penState::setPressure(0.25f);
    pressed.pointer += QPoint(1, 0);
    pressed.worker.Poll();
    EXPECT_FLOAT_EQ(pressed.opacity(2), 0.2f);
}

TEST_F(InputWorkerTest, SendsNothingWithoutAViewOrThroughAClosedGate)
{
    SamplingOptions nowhere = kOptions;
    nowhere.view = QRect();
    Polled polled(nowhere);
    polled.worker.Poll();
    EXPECT_EQ(polled.samples.count(), 0);

    const auto gate = std::make_shared<SampleGate>();
    InputWorker worker(
        kOptions, [] { return QPoint(); }, gate);
    QSignalSpy samples(&worker, SIGNAL(MousePositionChanged(const QPoint&, int, float, float)));
    gate->close();
    worker.Poll();
    EXPECT_EQ(samples.count(), 0);
}

}  // namespace
