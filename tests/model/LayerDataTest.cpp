#include "support/LayerDataFixture.h"
#include "support/ResidentMemory.h"

#include <QBuffer>

#include <algorithm>
#include <locale>
#include <streambuf>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using LayerDataTest = LayerDataFixture;

TEST_F(LayerDataTest, ADrawingComesBackFromBothForms)
{
    makeVariedDrawing();
    const QString before = describe(saved());
    const Loaded fromText = readText(tokensOf(text()));
    const Loaded fromBinary = readBinary(binary());
    for (const Loaded& loaded : {fromText, fromBinary}) {
        ASSERT_TRUE(loaded.status);
        EXPECT_EQ(describe(*loaded.manager), before);
        EXPECT_TRUE(loaded.manager->isMaster());
    }
    EXPECT_EQ(describe(saved()), before);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerDataTest, SavingAgainGivesTheSameBytes)
{
    makeVariedDrawing();
    const std::string firstText = text();
    const std::string firstBinary = binary();
    EXPECT_EQ(text(), firstText);
    data().setLayerManager(readText(tokensOf(firstText)).manager);
    EXPECT_EQ(binary(), firstBinary);
    data().setLayerManager(readBinary(firstBinary).manager);
    EXPECT_EQ(text(), firstText);
}

TEST_F(LayerDataTest, SavingLeavesFramesAsTheyWereAndLoadingLeavesThemPacked)
{
    makeVariedDrawing();
    text();
    binary();
    const Layer& ink = *saved().layer("persp", 0);
    EXPECT_TRUE(ink.frameAt(0)->isUnpacked());
    EXPECT_FALSE(ink.frameAt(1)->isUnpacked());
    EXPECT_TRUE(saved().layer("persp", 1)->frameNumbered(7)->isBlank());
    const Loaded loaded = readText(tokensOf(text()));
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(loaded.manager->layer("persp", 0)->frameAt(i)->isUnpacked());
    }
}

// Compressed as this program does not do it.
TEST_F(LayerDataTest, APictureThatIsNotChangedIsNeverEncodedAgain)
{
    QByteArray foreign;
    QBuffer buffer(&foreign);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(pixels::marked(1).save(&buffer, "PNG", 100));
    ASSERT_NE(foreign, encodePng(pixels::marked(1)));
    auto layer = drawings::layer("Ink", {});
    layer->insertFrame(Frame::fromPng(timeOfFrame(4), foreign));
    addSavedLayer("persp", std::move(layer));
    for (const Form form : {Form::Text, Form::Binary, Form::Text}) {
        const Loaded loaded = reloaded(form);
        Frame& frame = *loaded.manager->layer("persp", 0)->frameAt(0);
        EXPECT_FALSE(frame.isUnpacked());
        frame.image();
        loaded.manager->composite("persp");
        EXPECT_EQ(frame.png(), foreign);
        data().setLayerManager(loaded.manager);
    }
}

#if !defined(__SANITIZE_ADDRESS__)  // it keeps freed memory on purpose
TEST_F(LayerDataTest, SavingPackedFramesTakesNoMemoryToSpeakOf)
{
    constexpr int kFrames = 64;
    constexpr int kFrameBytes = 1 << 20;
    auto layer = drawings::layer("Ink", {});
    for (int number = 1; number <= kFrames; ++number) {
        auto frame = std::make_unique<Frame>(timeOfFrame(number));
        frame->setPicture(Picture::fromPng(QByteArray(kFrameBytes, static_cast<char>(number))));
        layer->insertFrame(std::move(frame));
    }
    addSavedLayer("persp", std::move(layer));
    // Looks at the memory whenever something is written.
    class Gauge : public std::streambuf {
    public:
        qint64 highest = 0;

    private:
        int_type overflow(int_type c) override { return traits_type::not_eof(c); }
        std::streamsize xsputn(const char*, std::streamsize count) override
        {
            highest = std::max(highest, residentBytes());
            return count;
        }
    };
    const qint64 before = residentBytes();
    Gauge gauge;
    std::ostream out(&gauge);
    ASSERT_TRUE(data().writeASCII(out));
    ASSERT_TRUE(data().writeBinary(out));
    EXPECT_LE(gauge.highest - before, qint64(kFrames) * kFrameBytes / 10);
}
#endif

TEST_F(LayerDataTest, TheTextRecordReadsAsItAlwaysHas)
{
    EXPECT_EQ(text(), "1 0 \"\" 0\n\t\t");
    saved().setMaster(true);
    auto layer = drawings::layer("Ink", {});
    layer->setOpacity(0.123456789f);
    layer->setState(kLayerStatic);
    auto frame = Frame::fromPng(MTime(12.5, MTime::uiUnit()), encodePng(dot()));
    layer->insertFrame(std::move(frame));
    addSavedLayer("persp", std::move(layer));
    addSavedLayer("persp", drawings::layer("", {}));
    EXPECT_EQ(text(), "1 1 \"persp\" 1\n\t\t"
                      " \"persp\" 2 0\n\t\t"
                      " \"Ink\" 1 1 0.123457 1\n\t\t"
                      " 12.5 \""
                          + encodePng(dot()).toHex().toStdString()
                          + "\"\n\t\t"
                            " \"\" 0 1 1 0\n\t\t");
}

TEST_F(LayerDataTest, TheTextRecordDoesNotDependOnTheStreamsLocaleOrFlags)
{
    class Commas : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
        std::string do_truename() const override { return "wahr"; }
    };
    auto layer = drawings::layer("Ink", {12345});
    layer->setOpacity(0.5f);
    addSavedLayer("persp", std::move(layer));
    const std::string plain = text();
    std::ostringstream out;
    out.imbue(std::locale(std::locale::classic(), new Commas));
    out << std::hex << std::boolalpha << std::fixed;
    out.precision(2);
    ASSERT_TRUE(data().writeASCII(out));
    EXPECT_EQ(out.str(), plain);
    out.str("");
    out << 0.25;
    EXPECT_EQ(out.str(), "0,25") << "the stream is left as it was";
}

TEST_F(LayerDataTest, TheBinaryRecordReadsAsItAlwaysHas)
{
    const auto bytes = [](const char* hex) { return QByteArray::fromHex(hex).toStdString(); };
    EXPECT_EQ(binary(), bytes("01000000 00 00000000 00000000"));
    saved().setMaster(true);
    makeSmallDrawing();
    saved().layer("persp", 0)->setOpacity(0.5f);
    saved().layer("persp", 0)->setState(kLayerLocked);
    const QByteArray png = encodePng(dot());
    ASSERT_LT(png.size(), 256);
    EXPECT_EQ(binary(), bytes("01000000 01 05000000 7065727370 01000000"
                              "05000000 7065727370 01000000 00000000"
                              "03000000 496e6b 01000000 01 0000003f 02000000"
                              "04000000")
                            + static_cast<char>(png.size()) + bytes("000000") + png.toStdString());
}

TEST_F(LayerDataTest, NamesFromABinaryRecordCanBeSavedAsText)
{
    auto layer = drawings::layer("a\"b\\c\nd", {});
    addSavedLayer("persp", std::move(layer));
    const Loaded loaded = readBinary(binary());
    EXPECT_EQ(loaded.manager->layerName("persp", 0), QString("a'b/cd"));
    data().setLayerManager(loaded.manager);
    EXPECT_EQ(describe(*readText(tokensOf(text())).manager), describe(*loaded.manager));
}

TEST_F(LayerDataTest, ReadingAppends)
{
    makeSmallDrawing();
    const QStringList tokens = tokensOf(text());
    unsigned next = kLead;
    ASSERT_TRUE(data().readASCII(argumentsOf(tokens), next));
    EXPECT_EQ(saved().layerCount("persp"), 2);
    std::istringstream in(binary());
    ASSERT_TRUE(data().readBinary(in, 1));
    EXPECT_EQ(saved().layerCount("persp"), 4);
}

TEST_F(LayerDataTest, AReferencedDrawingIsNeverMaster)
{
    saved().setMaster(true);
    makeSmallDrawing();
    const std::string asText = text();
    const std::string asBinary = binary();
    const kernel::Scene::Activity referencing(session().scene, kernel::FileActivity::Reference);
    EXPECT_FALSE(readText(tokensOf(asText)).manager->isMaster());
    EXPECT_FALSE(readBinary(asBinary).manager->isMaster());
}

TEST_F(LayerDataTest, TheBinaryFormKeepsFrameNumbersAndTheTextFormWritesTheUnitInForce)
{
    addSavedLayer("persp", drawings::layer("Ink", {24}));
    const std::string asBinary = binary();
    MTime::setUIUnit(MTime::kNTSCField);
    EXPECT_EQ(readBinary(asBinary).manager->layer("persp", 0)->frameNumbers(), (QList<int>{24}));
    EXPECT_NE(text().find("\n\t\t 60 \""), std::string::npos);
}

TEST_F(LayerDataTest, OnlyABinarySaveWarnsOfFramesItWouldMerge)
{
    addSavedLayer("persp", drawings::layer("Ink", {8, 9, 10, 11}));
    addSavedLayer("persp", drawings::layer("Sparse", {8, 16}));
    addSavedLayer("top", drawings::layer("Rough", {0, 1, 2, 3}));
    binary();
    EXPECT_TRUE(lines().empty());
    MTime::setUIUnit(MTime::kGames);  // 15 frames a second, after 24
    text();
    EXPECT_TRUE(lines().empty());
    const Loaded loaded = readBinary(binary());
    EXPECT_THAT(warnings(),
                ElementsAre("[Lumisketch2] A binary scene does not keep frames hidden behind an earlier one "
                            "of the same number: Ink (2), Rough (2)"));
    EXPECT_EQ(loaded.manager->layer("persp", 0)->frameNumbers(), (QList<int>{5, 6}));
    EXPECT_EQ(saved().layer("persp", 0)->frameCount(), 4) << "nothing is taken out of memory";
}

TEST_F(LayerDataTest, FramesHiddenInTheTimeUnitComeBackFromText)
{
    addSavedLayer("persp", drawings::layer("Ink", {8, 9, 10, 11}));
    const QString before = describe(saved());
    MTime::setUIUnit(MTime::kGames);
    const Loaded loaded = readText(tokensOf(text()));
    EXPECT_EQ(loaded.manager->layer("persp", 0)->hiddenFrameCount(), 2);
    MTime::setUIUnit(MTime::kFilm);
    loaded.manager->updateCurrentFrames(currentFrameNumber(), false);
    EXPECT_EQ(describe(*loaded.manager), before);
}

TEST_F(LayerDataTest, CopiesShareTheDrawing)
{
    makeSmallDrawing();
    std::unique_ptr<BaseNodeLayerData> copy(static_cast<BaseNodeLayerData*>(BaseNodeLayerData::creator()));
    EXPECT_FALSE(copy->layerManager());
    copy->copy(data());
    EXPECT_EQ(copy->layerManager().get(), &saved());
}

TEST_F(LayerDataTest, WithoutADrawingWritingFails)
{
    BaseNodeLayerData empty;
    std::ostringstream out;
    EXPECT_FALSE(empty.writeBinary(out));
    EXPECT_EQ(out.str(), "");
    EXPECT_FALSE(empty.writeASCII(out));
    EXPECT_EQ(out.str(), "-1");
    out.setstate(std::ios::badbit);
    EXPECT_FALSE(data().writeBinary(out));
}

}  // namespace
