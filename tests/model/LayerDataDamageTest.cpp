#include "support/LayerDataFixture.h"

#include <QBuffer>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using LayerDataDamageTest = LayerDataFixture;

QByteArray bytesOf(const QImage& image, const char* format = "PNG", int quality = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format, quality));
    return bytes;
}

QImage picture(int width, int height, QImage::Format format)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(QColor(200, 90, 30, 160));
    for (int i = 0; i < std::min(width, height); ++i) {
        image.setPixelColor(i, i, QColor(255 - i % 256, i % 256, 80));
    }
    return image.convertToFormat(format);
}

TEST_F(LayerDataDamageTest, EveryMissingTokenHasItsMessage)
{
    makeSmallDrawing();
    const QStringList whole = tokensOf(text());
    ASSERT_EQ(whole.size(), 14);
    const char* messages[] = {"Failed to get master (4)",       "Failed to get master (4)", "Invalid layer count (6)",
                              "Invalid layer count (6)",        "Invalid camera name (7)",  "Invalid layer count (8)",
                              "Invalid active layer index (9)", "Invalid layer name (10)",  "Invalid frame count (11)",
                              "Invalid layer visibility (12)",  "Invalid opacity (13)",     "Invalid layer state (14)",
                              "Invalid frame time (15)",        "Invalid draw data (16)"};
    for (int count = 0; count < whole.size(); ++count) {
        forgetLines();
        const Loaded loaded = readText(whole.mid(0, count));
        EXPECT_FALSE(loaded.status) << count;
        EXPECT_THAT(errors(), ElementsAre(std::string("[Lumisketch2] ") + messages[count])) << count;
        EXPECT_EQ(loaded.manager->totalLayerCount(), count >= 12 ? 1 : 0) << count;
    }
    forgetLines();
    const Loaded loaded = readText(whole);
    EXPECT_TRUE(loaded.status);
    EXPECT_EQ(loaded.next, kLead + 14);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerDataDamageTest, TokensAfterARecordAreNotTouched)
{
    makeSmallDrawing();
    const QStringList whole = tokensOf(text());
    const Loaded loaded = readText(whole + QStringList{"\"persp\"", "1", "-1"});
    EXPECT_TRUE(loaded.status);
    EXPECT_EQ(loaded.next, kLead + 14);
    EXPECT_EQ(describe(*loaded.manager), describe(saved()));
    EXPECT_TRUE(lines().empty());
}

TEST_F(LayerDataDamageTest, WrongTokensAreMetWithMessages)
{
    makeSmallDrawing();
    const QStringList whole = tokensOf(text());
    const struct {
        const char* what;
        int at;
        const char* token;
        bool success;
        std::vector<std::string> messages;
        int frames;  // -1: no layer
    } cases[] = {
        {"version 0", 0, "0", false, {"Invalid version"}, -1},
        {"version -3", 0, "-3", false, {"Invalid version"}, -1},
        {"a later version", 0, "2", true, {}, 1},
        {"no version", 0, "\"one\"", true, {}, 1},
        {"master", 1, "\"maybe\"", false, {"Failed to get master (4)"}, -1},
        {"no cameras", 3, "0", true, {}, -1},
        {"fewer than no cameras", 3, "-1", true, {}, -1},
        {"one camera too many", 3, "2", false, {"Invalid camera name (17)"}, 1},
        {"cameras beyond 32 bits", 3, "4294967297", false, {"Invalid layer count (6)"}, -1},
        {"very many cameras", 3, "2147483647", false, {"Invalid camera name (17)"}, 1},
        {"camera count", 3, "\"few\"", false, {"Invalid layer count (6)"}, -1},
        {"camera without a name", 4, "\"\"", true, {}, -1},
        {"no layers", 5, "0", true, {"Invalid layer index: 0"}, -1},
        {"fewer than no layers", 5, "-1", true, {"Invalid layer index: 0"}, -1},
        {"one layer too many", 5, "2", false, {"Invalid layer name (17)"}, 1},
        {"layer count", 5, "\"few\"", false, {"Invalid layer count (8)"}, -1},
        {"very many layers", 5, "2147483647", false, {"Invalid layer name (17)"}, 1},
        {"active layer beyond", 6, "5", true, {"Invalid layer index: 5"}, 1},
        {"active layer far beyond", 6, "2147483647", true, {"Invalid layer index: 2147483647"}, 1},
        {"no active layer", 6, "-1", true, {}, 1},
        {"active layer", 6, "\"top\"", false, {"Invalid active layer index (9)"}, -1},
        {"an absent layer's name with frames", 7, "\"UNKNOWN\"", true, {}, 1},
        {"frame count", 8, "\"x\"", false, {"Invalid frame count (11)"}, -1},
        {"no frames", 8, "0", true, {}, 0},
        {"one frame too many", 8, "2", false, {"Invalid frame time (17)"}, 1},
        {"negative frame count", 8, "-5", true, {}, 0},
        {"very many frames", 8, "2147483647", false, {"Invalid frame time (17)"}, 1},
        {"visibility", 9, "\"maybe\"", false, {"Invalid layer visibility (12)"}, -1},
        {"more than opaque", 10, "7.5", true, {}, 1},
        {"opacity", 10, "\"thin\"", false, {"Invalid opacity (13)"}, -1},
        {"state beyond", 11, "7", true, {"Invalid layer state (14)"}, -1},
        {"state below", 11, "-1", true, {"Invalid layer state (14)"}, -1},
        {"state", 11, "\"x\"", false, {"Invalid layer state (14)"}, -1},
        {"a time beyond all frame numbers", 12, "1e300", true, {}, 1},
        {"a time before all frame numbers", 12, "-1e300", true, {}, 1},
        {"frame time", 12, "\"soon\"", false, {"Invalid frame time (15)"}, 0},
        {"no picture", 13, "\"\"", true, {"Failed to load draw data: Ink (0)"}, 0},
        {"a picture of nothing", 13, "\"00ff\"", true, {"Failed to load draw data: Ink (0)"}, 0},
        {"a picture of no digits", 13, "\"xyz %1 \"", true, {"Failed to load draw data: Ink (0)"}, 0},
        {"a number for a picture", 13, "89", true, {"Failed to load draw data: Ink (0)"}, 0},
    };
    for (const auto& c : cases) {
        forgetLines();
        QStringList tokens = whole;
        tokens[c.at] = c.token;
        const Loaded loaded = readText(tokens);
        EXPECT_EQ(static_cast<bool>(loaded.status), c.success) << c.what;
        std::vector<std::string> expected;
        for (const std::string& message : c.messages) {
            expected.push_back("[Lumisketch2] " + message);
        }
        EXPECT_EQ(errors(), expected) << c.what;
        const Layer* layer = loaded.manager->layer("persp", 0);
        EXPECT_EQ(layer ? layer->frameCount() : -1, c.frames) << c.what;
        use(loaded);
    }
}

TEST_F(LayerDataDamageTest, ATokenMissingOrInsertedAnywhereIsSurvivedAndNeverRefusedInSilence)
{
    makeSmallDrawing();
    const QStringList whole = tokensOf(text());
    for (int at = 0; at < whole.size(); ++at) {
        QStringList shorter = whole;
        shorter.removeAt(at);
        std::vector<QStringList> damaged{shorter};
        for (const char* extra : {"\"x\"", "\"\"", "7", "-1", "0.5", "\"UNKNOWN\""}) {
            damaged.push_back(whole);
            damaged.back().insert(at, extra);
        }
        for (const QStringList& tokens : damaged) {
            forgetLines();
            const Loaded loaded = readText(tokens);
            EXPECT_TRUE(loaded.status || !errors().empty()) << tokens.mid(0, 13).join(' ').toStdString();
            EXPECT_LE(loaded.next, kLead + static_cast<unsigned>(tokens.size()) + 1);
            use(loaded);
        }
    }
}

TEST_F(LayerDataDamageTest, AnAbsentLayerIsSkippedWithAWarning)
{
    const Loaded loaded = readText(tokensOf("1 0 \"\" 1 \"persp\" 2 -1 \"UNKNOWN\" -1 \"UNKNOWN\" 0 1 1 0"));
    EXPECT_TRUE(loaded.status);
    EXPECT_THAT(warnings(), ElementsAre("[Lumisketch2] Skipping invalid layer"));
    EXPECT_EQ(loaded.manager->layerCount("persp"), 1);
}

TEST_F(LayerDataDamageTest, DigitsMayBeUpperCaseHaveOtherCharactersAmongThemAndBePairedFromTheEnd)
{
    makeSmallDrawing();
    const QStringList whole = tokensOf(text());
    const QString digits = QString(whole[13]).remove('"');
    const struct {
        const char* what;
        QString digits;
        int frames;
    } cases[] = {{"upper case", digits.toUpper(), 1},
                 {"other characters", QString(digits).insert(9, " x-").insert(40, "\t"), 1},
                 {"one digit more at the front", "0" + digits, 0},
                 {"one digit less at the front", digits.mid(1), 0},
                 {"one digit less at the end", digits.chopped(1), 0}};
    for (const auto& c : cases) {
        QStringList tokens = whole;
        tokens[13] = '"' + c.digits + '"';
        const Loaded loaded = readText(tokens);
        EXPECT_EQ(loaded.manager->layer("persp", 0)->frameCount(), c.frames) << c.what;
        if (c.frames > 0) {
            EXPECT_EQ(describe(*loaded.manager), describe(saved())) << c.what;
        }
    }
}

TEST_F(LayerDataDamageTest, WithoutTokensNothingIsSaid)
{
    BaseNodeLayerData empty;
    unsigned next = 0;
    EXPECT_FALSE(empty.readASCII(MArgList(), next));
    std::istringstream nothing;
    EXPECT_FALSE(empty.readBinary(nothing, 0));
    EXPECT_TRUE(lines().empty());
    EXPECT_TRUE(empty.layerManager());
}

TEST_F(LayerDataDamageTest, EveryPrefixOfABinaryRecordKeepsWhatIsWhole)
{
    makeSmallDrawing();
    auto second = drawings::layer("Second", {});
    second->insertFrame(Frame::fromPng(timeOfFrame(9), encodePng(dot())));
    addSavedLayer("persp", std::move(second));
    const std::string whole = binary();
    int mostLayers = 0;
    for (size_t length = 1; length < whole.size(); ++length) {
        const Loaded loaded = readBinary(whole.substr(0, length));
        EXPECT_FALSE(loaded.status) << length;
        const int layers = loaded.manager->totalLayerCount();
        EXPECT_GE(layers, mostLayers) << length;
        use(loaded);
        mostLayers = std::max(mostLayers, layers);
    }
    EXPECT_EQ(mostLayers, 2);
    EXPECT_EQ(describe(*readBinary(whole).manager), describe(saved()));
    EXPECT_TRUE(lines().empty());
}

TEST_F(LayerDataDamageTest, EveryPrefixOfATextRecordIsSurvived)
{
    makeSmallDrawing();
    const std::string whole = text();
    for (size_t length = 1; length < whole.size(); ++length) {
        const Loaded loaded = readText(tokensOf(whole.substr(0, length)));
        EXPECT_LE(loaded.manager->totalLayerCount(), 1);
        use(loaded);
    }
}

TEST_F(LayerDataDamageTest, ClaimedLengthsAndCountsAreNotTrusted)
{
    makeSmallDrawing();
    const std::string whole = binary();
    const size_t counts[] = {14, 27, 42};            // of cameras, layers and frames; one is there of each
    const size_t lengths[] = {5, 18, 35, 59};        // of names and the picture
    const size_t otherNumbers[] = {31, 47, 51, 55};  // active layer, opacity, state, frame number
    constexpr qint32 kMost = std::numeric_limits<qint32>::max();
    const auto readWith = [&](size_t at, qint32 claim) {
        std::string damaged = whole;
        std::memcpy(&damaged[at], &claim, sizeof claim);
        const Loaded loaded = readBinary(damaged);
        EXPECT_LE(loaded.manager->totalLayerCount(), 1) << at << " claims " << claim;
        use(loaded);
        return static_cast<bool>(loaded.status);
    };
    for (const size_t at : counts) {
        EXPECT_TRUE(readWith(at, 1)) << at;
        for (const qint32 claim : {2, 70000, kMost}) {
            EXPECT_FALSE(readWith(at, claim)) << at << " claims " << claim;
        }
    }
    for (const size_t at : lengths) {
        const auto left = static_cast<qint32>(whole.size() - at - sizeof(qint32));
        for (const qint32 claim : {left + 1, kMost}) {
            EXPECT_FALSE(readWith(at, claim)) << at << " claims " << claim;
        }
    }
    for (const std::vector<size_t>& all : {std::vector<size_t>(std::begin(counts), std::end(counts)),
                                           std::vector<size_t>(std::begin(lengths), std::end(lengths)),
                                           std::vector<size_t>(std::begin(otherNumbers), std::end(otherNumbers))}) {
        for (const size_t at : all) {
            for (const qint32 claim : {-1, 0, kMost, std::numeric_limits<qint32>::min()}) {
                readWith(at, claim);
            }
        }
    }
}

TEST_F(LayerDataDamageTest, ABinaryStateOutOfRangeIsAnimatedAndABrokenPictureIsLeftOut)
{
    makeSmallDrawing();
    std::string damaged = binary();
    const size_t state = damaged.find("Ink") + 3 + 4 + 1 + 4;
    for (const char value : {char(7), char(-1)}) {
        damaged[state] = value;
        damaged[state + 3] = value;
        EXPECT_EQ(readBinary(damaged).manager->layerState("persp", 0), kLayerAnim);
    }
    damaged = binary();
    damaged[damaged.size() - 20] ^= 0x55;
    damaged[damaged.find("IHDR")] = 'X';
    const Loaded loaded = readBinary(damaged);
    EXPECT_TRUE(loaded.status);
    EXPECT_EQ(loaded.manager->layer("persp", 0)->frameCount(), 0);
    EXPECT_TRUE(lines().empty());
}

TEST_F(LayerDataDamageTest, PicturesOfAnyKindAreLoadedAndWhatIsNoPictureIsLeftOut)
{
    const QByteArray canvas = bytesOf(picture(1024, 1024, QImage::Format_RGBA8888));
    const QByteArray wide = bytesOf(picture(8192, 8192, QImage::Format_Mono));
    QByteArray damagedHeader = canvas;
    damagedHeader[18] = 1;
    const struct {
        const char* what;
        QByteArray bytes;
        bool isPicture;
    } cases[] = {
        {"a canvas", canvas, true},
        {"one pixel", bytesOf(picture(1, 1, QImage::Format_ARGB32)), true},
        {"a small one", bytesOf(picture(16, 16, QImage::Format_ARGB32)), true},
        {"one larger than the canvas", bytesOf(picture(1500, 40, QImage::Format_ARGB32)), true},
        {"1 bit", bytesOf(picture(1024, 1024, QImage::Format_Mono)), true},
        {"greyscale", bytesOf(picture(1024, 1024, QImage::Format_Grayscale8)), true},
        {"palette", bytesOf(picture(300, 300, QImage::Format_Indexed8)), true},
        {"16 bits a channel", bytesOf(picture(300, 300, QImage::Format_RGBA64)), true},
        {"without alpha", bytesOf(picture(1024, 1024, QImage::Format_RGB32)), true},
        {"one as wide as can be", bytesOf(picture(8192, 1, QImage::Format_Mono)), true},
        {"one too wide", bytesOf(picture(8193, 1, QImage::Format_Mono)), false},
        {"one too high", bytesOf(picture(1, 8193, QImage::Format_Mono)), false},
        {"half of one", canvas.left(canvas.size() / 2), false},
        {"the beginning of a large one", wide.left(100), false},
        {"a header", canvas.left(33), false},
        {"less than a header", canvas.left(20), false},
        {"a damaged header", damagedHeader, false},
        {"another kind of picture", bytesOf(picture(16, 16, QImage::Format_RGB32), "BMP"), false},
        {"no picture", QByteArray(500, 'x'), false},
    };
    for (const auto& c : cases) {
        auto layer = drawings::layer("Ink", {});
        for (const int number : {3, 8}) {
            layer->addFrame(timeOfFrame(number));
        }
        layer->frameAt(0)->setPicture(Picture::fromPng(c.bytes));
        layer->frameAt(1)->setPicture(Picture::fromPng(encodePng(dot())));
        data().setLayerManager(std::make_shared<LayerManager>());
        data().layerManager()->insertLayer("persp", -1, std::move(layer));
        for (const Form form : {Form::Text, Form::Binary}) {
            forgetLines();
            const Loaded loaded = reloaded(form);
            EXPECT_TRUE(loaded.status) << c.what;
            const bool isReported = form == Form::Text && !c.isPicture;
            EXPECT_EQ(errors(), std::vector<std::string>(isReported, "[Lumisketch2] Failed to load draw data: Ink (0)"))
                << c.what;
            Layer& read = *loaded.manager->layer("persp", 0);
            EXPECT_EQ(read.frameNumbers(), c.isPicture ? (QList<int>{3, 8}) : (QList<int>{8})) << c.what;
            if (c.isPicture) {
                EXPECT_EQ(read.frameAt(0)->png(), c.bytes) << c.what;
                EXPECT_TRUE(pixels::same(read.frameAt(0)->image(), QImage::fromData(c.bytes))) << c.what;
            }
            use(loaded);
        }
    }
}

}  // namespace
