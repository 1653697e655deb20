// The picture held against the plain one over random drawings and what may be done with them.

#include "model/Canvas.h"
#include "model/PngCodec.h"
#include "support/Dice.h"
#include "support/DrawingFixture.h"
#include "support/LiteralComposite.h"
#include "support/LiteralRaster.h"

#include <QPainter>

#include <optional>

namespace {

const QString kCamera = "persp";
constexpr int kLastFrameNumber = 9;

// Pictures ------------------------------------------------------------------------------------------------------------

// Lines of one tool; the colour is there unseen wherever they fade.
QImage inked(ToolType tool, int width, float opacity, Dice& dice)
{
    QImage image(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    fillInvisible(image, QColor(dice.between(0, 255), dice.between(0, 255), dice.between(0, 255)));
    for (int i = 0; i < 9; ++i) {
        const QPoint from = dice.point(-50, 1070);
        literalStroke(image, drawings::line(from, from + dice.point(-500, 500), width, opacity), 0, tool);
    }
    return image;
}

QImage over(const QImage& below, const QImage& above)
{
    QImage image = below;
    QPainter painter(&image);
    painter.drawImage(0, 0, above);
    return image;
}

// A colour over the whole canvas whose alpha grows downward.
QImage wash(int strongest)
{
    QImage image(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    QLinearGradient gradient(0, 0, 0, kCanvasSize);
    gradient.setColorAt(0, QColor(90, 140, 200, strongest / 8));
    gradient.setColorAt(1, QColor(90, 140, 200, strongest));
    painter.fillRect(image.rect(), gradient);
    return image;
}

// Every colour in every strength, in a box.
QImage noise(const QRect& box, int strongest, Dice& dice)
{
    QImage image = blankCanvas();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        uchar* pixel = image.scanLine(y) + box.left() * 4;
        for (int x = 0; x < box.width(); ++x, pixel += 4) {
            for (int channel = 0; channel < 3; ++channel) {
                pixel[channel] = static_cast<uchar>(dice.between(0, 255));
            }
            pixel[3] = static_cast<uchar>(dice.between(0, strongest));
        }
    }
    return image;
}

QImage smallGrey()
{
    QImage image(45, 30, QImage::Format_Grayscale8);
    image.fill(170);
    return image;
}

struct Sample {
    QImage image;
    QByteArray png;  // read back it has another format
};

const std::vector<Sample>& samples()
{
    static const std::vector<Sample> made = [] {
        Dice dice(7);
        const QImage images[] = {inked(ToolType::Pencil, 6, 1.0f, dice),
                                 inked(ToolType::Brush, 60, 0.8f, dice),
                                 inked(ToolType::Brush, 12, 1.0f, dice),
                                 inked(ToolType::Brush, 90, 0.04f, dice),
                                 over(inked(ToolType::Brush, 100, 0.5f, dice), inked(ToolType::Pencil, 3, 0.9f, dice)),
                                 wash(255),
                                 wash(9),
                                 noise(QRect(331, 205, 260, 301), 255, dice),
                                 noise(QRect(1, 700, 401, 323), 12, dice),
                                 noise(QRect(900, 0, 124, 1024), 255, dice),
                                 blankCanvas(),
                                 smallGrey()};
        std::vector<Sample> list;
        for (const QImage& image : images) {
            list.push_back({image, encodePng(image)});
        }
        return list;
    }();
    return made;
}

std::unique_ptr<Frame> randomFrame(int frameNumber, Dice& dice)
{
    const Sample& sample = samples()[static_cast<size_t>(dice.between(0, static_cast<int>(samples().size()) - 1))];
    if (dice.oneIn(2)) {
        return Frame::fromPng(timeOfFrame(frameNumber), sample.png);
    }
    auto frame = std::make_unique<Frame>(timeOfFrame(frameNumber));
    frame->setImage(sample.image);
    return frame;
}

// Comparing -----------------------------------------------------------------------------------------------------------

QImage alphasOf(const QImage& image)
{
    return image.convertToFormat(QImage::Format_Alpha8);
}

// Whether a picture is byte for byte the wanted one wherever the ink of the stroke has changed and is seen. Elsewhere
// the plain one paints no ink over everything, which rounds faint colours anew.
bool sameUnderNewInk(const QImage& inkBefore, const QImage& ink, const QImage& wanted, const QImage& made)
{
    for (int y = 0; y < ink.height(); ++y) {
        const auto row = [y](const QImage& image) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); };
        for (int x = 0; x < ink.width(); ++x) {
            const bool isSeen = qAlpha(row(made)[x] | row(wanted)[x]) > 0;
            if (isSeen && row(ink)[x] != row(inkBefore)[x] && row(made)[x] != row(wanted)[x]) {
                return false;
            }
        }
    }
    return true;
}

// A session -----------------------------------------------------------------------------------------------------------

class FastCompositeTest : public DrawingFixture, public testing::WithParamInterface<unsigned> {
protected:
    FastCompositeTest() : dice(GetParam())
    {
        for (int count = 1 + static_cast<int>(GetParam()) % 8; count > 0; --count) {
            auto layer = std::make_unique<Layer>();
            layer->setState(dice.oneIn(3) ? kLayerAnim : kLayerStatic);
            layer->setVisible(!dice.oneIn(6));
            for (int frames = dice.between(0, 6); frames > 0; --frames) {
                layer->insertFrame(randomFrame(dice.between(1, kLastFrameNumber), dice));
            }
            drawing.insertLayer(kCamera, -1, std::move(layer));
        }
        drawing.setActiveLayer(kCamera, randomLayer(), true);
        changeGhosts();
        goTo(dice.between(1, kLastFrameNumber));
        compare("first");
    }

    int randomLayer() { return dice.between(0, drawing.layerCount(kCamera) - 1); }

    void changeGhosts()
    {
        Preferences& preferences = Preferences::instance();
        preferences.setGhostPrev(dice.oneIn(2));
        preferences.setGhostNext(dice.oneIn(2));
        preferences.setGhostPrevCount(dice.between(1, 9));
        preferences.setGhostNextCount(dice.between(1, 9));
        preferences.setGhostColorOverride(dice.oneIn(3));
        preferences.setGhostColorOverridePrev(QColor(dice.between(0, 255), 40, 30));
        preferences.setGhostColorOverrideNext(QColor(20, 200, dice.between(0, 255)));
        preferences.setDisableGhostingDuringPlayback(dice.oneIn(2));
        drawing.markForRedraw(kCamera);
    }

    void act()
    {
        const bool drawingNow = drawing.hasStroke();
        const int chance = dice.between(0, 99);
        if (drawingNow && chance < 60) {
            refreshStroke();
        } else if (drawingNow && chance < 75) {
            commit();
        } else if (drawingNow && chance < 80) {
            drawing.dropStroke();
            compare("drop");
        } else if (!drawingNow && chance < 50) {
            begin();
        } else {
            actBesides();
        }
    }

    void actBesides()
    {
        switch (dice.between(0, 5)) {
        case 0: return undo();
        case 1: changeGhosts(); return compare("ghosts");
        case 2: drawing.setActiveLayer(kCamera, randomLayer(), false); return compare("activate");
        case 3: return toggleVisibility();
        case 4: session().events.setCondition("playingBack", dice.oneIn(2)); return compare("play");
        default: goTo(dice.between(0, kLastFrameNumber + 1)); return compare("go");
        }
    }

    void toggleVisibility()
    {
        const int index = randomLayer();
        drawing.setLayerVisible(kCamera, index, !drawing.layerVisible(kCamera, index));
        compare("visibility");
    }

    void begin()
    {
        const bool transforming = dice.oneIn(5);
        const bool blank = transforming && dice.oneIn(2);
        Preferences::instance().setActiveTool(
            static_cast<ToolType>(dice.oneIn(3) ? dice.between(3, 7) : dice.between(0, 2)));
        Preferences::instance().setActiveColor(QColor(dice.between(0, 255), dice.between(0, 255), 90));
        ActiveStroke* record = drawing.beginStroke(kCamera, blank);
        if (!record) {
            return;
        }
        plain.beginStroke(drawing, kCamera, blank);
        if (transforming) {
            record->tool = ToolType::Transform;
            const QSize size(dice.between(1, 600), dice.between(1, 600));
            record->region = dice.oneIn(6) ? QRect() : QRect(dice.point(-100, 900), size);
            record->clearOnly = dice.oneIn(4);
            record->keepCut = dice.oneIn(2);
            record->pasteAsIs = dice.oneIn(2);
            record->takeRegion = true;
        }
        strokeWidth = dice.oneIn(4) ? dice.between(1, 3) : dice.between(4, 100);
        compare("begin " + std::to_string(static_cast<int>(record->tool)));
        refreshStroke();
    }

    void refreshStroke()
    {
        ActiveStroke& record = *drawing.stroke(kCamera);
        if (isFreehand(record.tool)) {
            for (int more = dice.between(1, 3); more > 0; --more) {
                const QPoint at = record.points.isEmpty() ? dice.point(-30, 1050)
                                                          : record.points.last().position + dice.point(-60, 60);
                record.points << StrokePoint{strokeWidth, dice.opacity(), 1.0f, at};
            }
        } else if (record.tool == ToolType::Transform) {
            record.translation = dice.point(-200, 200);
            record.angle = static_cast<float>(dice.between(-180, 180));
            record.scaleX = dice.between(-3, 3) / 2.0 + 0.1;
        } else {
            const QPoint from = record.points.isEmpty() ? dice.point(0, 1000) : record.points[0].position;
            record.points = drawings::line(from, dice.point(0, 1000), strokeWidth, 0.7f);
            record.text = "Ink " + QString::number(dice.between(0, 999));
        }
        record.changed = true;
        compare("refresh", isFreehand(record.tool));
    }

    void commit()
    {
        const FrameAddress address = drawing.strokeFrame(kCamera);
        const int index = drawing.strokeLayerIndex(kCamera);
        const auto committed = plain.commit(drawing, kCamera);
        Picture undone;
        ASSERT_EQ(drawing.commitStroke(kCamera, undone), committed.has_value()) << steps;
        if (committed) {
            Frame& frame = *drawing.layer(kCamera, index)->frameAtTime(address.time);
            EXPECT_LE(pixels::farthest(frame.image(), committed->image), 1) << steps << "commit";
            EXPECT_TRUE(alphasOf(frame.image()) == alphasOf(committed->image)) << steps << "commit";
            last = LastCommit{address, undone, decodePng(committed->undo), frame.image()};
        }
        compare("commit");
    }

    /// Or redoes; goes to the frame of the last commit for it, which an open stroke may hinder.
    void undo()
    {
        if (!last) {
            return;
        }
        drawing.setActiveLayer(kCamera, drawing.layerIndex(kCamera, last->address.layerId), false);
        goTo(frameNumberOf(last->address.time));
        const Layer* active = drawing.activeLayer(kCamera);
        const Frame* frame = active->currentFrame();
        if (!frame || frame->time() != last->address.time) {
            return compare("no undo");
        }
        ASSERT_TRUE(drawing.swapActiveImage(kCamera, last->record)) << steps;
        EXPECT_TRUE(pixels::same(active->currentFrame()->image(), last->other)) << steps << "undo";
        std::swap(last->shown, last->other);
        compare("undo");
    }

    /// A level apart is allowed: what has no ink is not painted, and what has is mixed otherwise. The plain picture is
    /// made first: making the real one consumes what changed.
    void compare(const std::string& step, bool freehand = false)
    {
        steps += step + ", ";
        const QImage inkBefore = plain.strokeImage();
        const QImage wanted = plain.compose(drawing, kCamera, MAnimControl::isPlaying());
        const QImage refreshed = freehand ? plain.repainted(drawing, kCamera, ghosts.sheet().image) : QImage();
        const bool remade = drawing.needsRedraw(kCamera);
        const QImage& made = *drawing.composite(kCamera);
        if (remade) {
            followGhosts();
        }
        if (made == wanted) {
            return;
        }
        const Preferences& preferences = Preferences::instance();
        const bool ghostly = preferences.ghostPrev() || preferences.ghostNext();
        ASSERT_LE(pixels::farthest(made, wanted), 1) << steps;
        ASSERT_TRUE(ghostly || alphasOf(made) == alphasOf(wanted)) << steps;
        ASSERT_TRUE(!freehand || sameUnderNewInk(inkBefore, plain.strokeImage(), refreshed, made)) << steps;
    }

    // The ghosts as the drawing has them, which a stroke is painted over.
    void followGhosts()
    {
        const ActiveStroke* record = drawing.stroke(kCamera);
        const bool silenced = MAnimControl::isPlaying() && Preferences::instance().disableGhostingDuringPlayback();
        if (!silenced && (!record || record->points.isEmpty()) && drawing.activeLayer(kCamera)) {
            ghosts.rebuild(*drawing.activeLayer(kCamera), ghostOptions());
        }
    }

    struct LastCommit {
        FrameAddress address;
        Picture record;
        QImage other;  // what the record holds
        QImage shown;
    };

    Dice dice;
    LiteralCompositor plain;
    GhostImages ghosts;
    std::optional<LastCommit> last;
    int strokeWidth = 1;
    std::string steps;
};

TEST_P(FastCompositeTest, IsWithinOneLevelOfThePlainPictureAndExactUnderNewInk)
{
    for (int step = 0; step < 24 && !HasFatalFailure(); ++step) {
        act();
    }
}

INSTANTIATE_TEST_SUITE_P(Sessions, FastCompositeTest, testing::Range(0u, 40u));

}  // namespace
