#include "model/BaseNodeLayerData.h"
#include "model/PngCodec.h"
#include "support/DrawingFixture.h"

#include <maya/MArgList.h>

#include <cstring>
#include <limits>
#include <locale>
#include <sstream>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// As in a scene, other tokens stand before the record's own.
constexpr unsigned kLead = 3;

QStringList tokensOf(const std::string& record)
{
    QStringList tokens;
    const QString text = QString::fromStdString(record);
    for (int i = 0; i < text.size();) {
        if (text[i].isSpace()) {
            ++i;
            continue;
        }
        int end = i + 1;
        const bool quoted = text[i] == '"';
        while (end < text.size() && (quoted ? text[end] != '"' : !text[end].isSpace())) {
            ++end;
        }
        tokens << text.mid(i, end - i) + (quoted ? "\"" : "");
        i = quoted ? end + 1 : end;
    }
    return tokens;
}

MArgList argumentsOf(const QStringList& tokens)
{
    MArgList list;
    list.addArg(MString(".ld"));
    list.addArg(MString("-type"));
    list.addArg(MString("tqLayerData"));
    for (const QString& token : tokens) {
        bool isNumber = false;
        const double number = token.toDouble(&isNumber);
        if (isNumber && number == static_cast<int>(number)) {
            list.addArg(static_cast<int>(number));
        } else if (isNumber) {
            list.addArg(number);
        } else {
            QString bare = token;
            MString text;
            text.setUTF8(bare.remove('"').toUtf8().constData());
            list.addArg(text);
        }
    }
    return list;
}

// A picture small enough to spell out.
QImage dot()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(QColor(1, 2, 3, 4));
    return image;
}

class LayerDataTest : public DrawingFixture {
protected:
    LayerDataTest() : m_manager(std::make_shared<LayerManager>()) { m_data.setLayerManager(m_manager); }

    LayerManager& saved() { return *m_manager; }
    BaseNodeLayerData& data() { return m_data; }

    std::string text()
    {
        std::ostringstream out;
        EXPECT_TRUE(m_data.writeASCII(out));
        return out.str();
    }
    std::string binary()
    {
        std::ostringstream out;
        EXPECT_TRUE(m_data.writeBinary(out));
        return out.str();
    }

    struct Loaded {
        std::shared_ptr<LayerManager> manager;
        MStatus status;
        unsigned next;
    };
    static Loaded readText(const QStringList& tokens)
    {
        BaseNodeLayerData data;
        unsigned next = kLead;
        const MStatus status = data.readASCII(argumentsOf(tokens), next);
        return {data.layerManager(), status, next};
    }
    static Loaded readBinary(const std::string& bytes)
    {
        BaseNodeLayerData data;
        std::istringstream in(bytes);
        const MStatus status = data.readBinary(in, static_cast<unsigned>(bytes.size()));
        return {data.layerManager(), status, 0};
    }

    void addSavedLayer(const QString& camera, std::unique_ptr<Layer> layer)
    {
        saved().insertLayer(camera, -1, std::move(layer));
    }

    // Several cameras, all states, hidden, blank, packed and foreign frames, non-ASCII names, duplicate names.
    void makeVariedDrawing()
    {
        saved().setMaster(true);
        auto ink = drawings::layer(QString::fromUtf8("Tusche 日本"), {1, 5, 10});
        ink->frameAt(1)->pack();
        ink->setOpacity(0.3f);
        addSavedLayer("persp", std::move(ink));
        auto blank = drawings::layer("blank", {-999});
        blank->addFrame(timeOfFrame(7));
        blank->setState(kLayerStatic);
        blank->setVisible(false);
        addSavedLayer("persp", std::move(blank));
        auto foreign = drawings::layer("blank", {});
        foreign->insertFrame(Frame::fromPng(timeOfFrame(3), encodePng(dot())));
        foreign->setState(kLayerLocked);
        addSavedLayer("|group|cam", std::move(foreign));
        addSavedLayer("top", drawings::layer("empty", {}));
        saved().setActiveLayer("persp", 1, true);
        saved().setCurrentCamera("top");
        saved().updateCurrentFrames(currentFrameNumber(), false);
    }

    // One layer with one tiny frame.
    void makeSmallDrawing()
    {
        auto layer = drawings::layer("Ink", {});
        layer->insertFrame(Frame::fromPng(timeOfFrame(4), encodePng(dot())));
        addSavedLayer("persp", std::move(layer));
    }

private:
    std::shared_ptr<LayerManager> m_manager;
    BaseNodeLayerData m_data;
};

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

TEST_F(LayerDataTest, EveryMissingTokenHasItsMessage)
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

TEST_F(LayerDataTest, WrongTokensAreMetWithMessages)
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
        {"very many cameras", 3, "2147483647", false, {"Invalid camera name (17)"}, 1},
        {"camera count", 3, "\"few\"", false, {"Invalid layer count (6)"}, -1},
        {"layer count", 5, "\"few\"", false, {"Invalid layer count (8)"}, -1},
        {"very many layers", 5, "2147483647", false, {"Invalid layer name (17)"}, 1},
        {"active layer beyond", 6, "5", true, {"Invalid layer index: 5"}, 1},
        {"no active layer", 6, "-1", true, {}, 1},
        {"frame count", 8, "\"x\"", false, {"Invalid frame count (11)"}, -1},
        {"negative frame count", 8, "-5", true, {}, 0},
        {"very many frames", 8, "2147483647", false, {"Invalid frame time (17)"}, 1},
        {"opacity", 10, "\"thin\"", false, {"Invalid opacity (13)"}, -1},
        {"state beyond", 11, "7", true, {"Invalid layer state (14)"}, -1},
        {"state below", 11, "-1", true, {"Invalid layer state (14)"}, -1},
        {"state", 11, "\"x\"", false, {"Invalid layer state (14)"}, -1},
        {"frame time", 12, "\"soon\"", false, {"Invalid frame time (15)"}, 0},
        {"no picture", 13, "\"\"", true, {"Failed to load draw data: Ink (0)"}, 0},
        {"a picture of nothing", 13, "\"00ff\"", true, {"Failed to load draw data: Ink (0)"}, 0},
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
    }
}

TEST_F(LayerDataTest, AnAbsentLayerIsSkippedWithAWarning)
{
    const Loaded loaded = readText(tokensOf("1 0 \"\" 1 \"persp\" 2 -1 \"UNKNOWN\" -1 \"UNKNOWN\" 0 1 1 0"));
    EXPECT_TRUE(loaded.status);
    EXPECT_THAT(warnings(), ElementsAre("[Lumisketch2] Skipping invalid layer"));
    EXPECT_EQ(loaded.manager->layerCount("persp"), 1);
}

TEST_F(LayerDataTest, HexMayBeUpperCaseAndHoldOtherCharacters)
{
    makeSmallDrawing();
    QStringList tokens = tokensOf(text());
    tokens[13] = tokens[13].toUpper().insert(9, " x-");
    EXPECT_EQ(describe(*readText(tokens).manager), describe(saved()));
}

TEST_F(LayerDataTest, WithoutTokensNothingIsSaid)
{
    BaseNodeLayerData empty;
    unsigned next = 0;
    EXPECT_FALSE(empty.readASCII(MArgList(), next));
    std::istringstream nothing;
    EXPECT_FALSE(empty.readBinary(nothing, 0));
    EXPECT_TRUE(lines().empty());
    EXPECT_TRUE(empty.layerManager());
}

TEST_F(LayerDataTest, EveryPrefixOfABinaryRecordKeepsWhatIsWhole)
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
        mostLayers = std::max(mostLayers, layers);
    }
    EXPECT_EQ(mostLayers, 2);
    EXPECT_EQ(describe(*readBinary(whole).manager), describe(saved()));
    EXPECT_TRUE(lines().empty());
}

TEST_F(LayerDataTest, EveryPrefixOfATextRecordIsSurvived)
{
    makeSmallDrawing();
    const std::string whole = text();
    for (size_t length = 1; length < whole.size(); ++length) {
        const Loaded loaded = readText(tokensOf(whole.substr(0, length)));
        EXPECT_LE(loaded.manager->totalLayerCount(), 1);
    }
}

TEST_F(LayerDataTest, ClaimedLengthsAndCountsAreNotTrusted)
{
    makeSmallDrawing();
    const std::string whole = binary();
    const size_t offsets[] = {5, 14, 18, 27, 31, 35, 42, 51, 55, 59};  // every count and length of the record
    const qint32 claims[] = {-1, 0, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min(), 70000};
    for (const size_t at : offsets) {
        for (const qint32 claim : claims) {
            std::string damaged = whole;
            std::memcpy(&damaged[at], &claim, sizeof claim);
            const Loaded loaded = readBinary(damaged);
            EXPECT_LE(loaded.manager->totalLayerCount(), 1) << at << " claims " << claim;
        }
    }
}

TEST_F(LayerDataTest, ABinaryStateOutOfRangeIsAnimatedAndABrokenPictureIsLeftOut)
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

TEST_F(LayerDataTest, PicturesThatClaimGigabytesAreNotDecoded)
{
    QByteArray bomb = encodePng(dot());
    bomb.replace(16, 8, QByteArray::fromHex("00002001 00000001"));
    EXPECT_TRUE(decodePng(bomb).isNull());
    bomb.replace(16, 8, QByteArray::fromHex("ffffffff ffffffff"));
    EXPECT_TRUE(decodePng(bomb).isNull());
    EXPECT_TRUE(decodePng(QByteArray("GIF89a") + QByteArray(100, 'x')).isNull());
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
