#include "model/CanvasMemory.h"

#include "model/Canvas.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(CanvasMemory, ServesThoseToComeWithWhatThoseThatWentHad)
{
    const uchar* gone = nullptr;
    {
        const QImage canvas = canvasMemory::take();
        gone = canvas.constBits();
    }
    const QImage next = canvasMemory::take();
    EXPECT_EQ(next.constBits(), gone);
    EXPECT_NE(canvasMemory::take().constBits(), gone) << "while the other one lives";
}

TEST(CanvasMemory, IsTakenAndGivenBackByManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int colour = 1; colour <= 4; ++colour) {
        threads.emplace_back([colour] {
            for (int round = 0; round < 50; ++round) {
                QImage canvas = canvasMemory::take();
                canvas.fill(QColor(colour, 0, 0));
                EXPECT_EQ(canvas.pixelColor(kCanvasSize - 1, kCanvasSize - 1), QColor(colour, 0, 0));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(Canvas, OfOnesOwnMayBeWrittenWithoutChangingWhatItIsMadeOf)
{
    const QImage source = blankCanvas();
    QImage own = ownCanvas(source);
    EXPECT_EQ(own, source);
    const uchar* const pixels = own.constBits();
    own.fill(Qt::red);
    EXPECT_EQ(own.constBits(), pixels) << "written where it is";
    EXPECT_EQ(source, blankCanvas());
}

}  // namespace
