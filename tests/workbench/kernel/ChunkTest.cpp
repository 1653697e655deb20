#include "kernel/ChunkReader.h"
#include "kernel/ChunkWriter.h"
#include "kernel/PartStream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

using namespace kernel;
using testing::ElementsAre;

namespace {

std::string written(const std::function<void(ChunkWriter&)>& write)
{
    std::ostringstream out;
    ChunkWriter writer(out);
    write(writer);
    return out.str();
}

std::string bytes(const char* text, std::size_t size)
{
    return std::string(text, size);
}

/// A head with the size given as its last bytes.
std::string head(const char* id, const std::string& size)
{
    return id + std::string(12 - size.size(), '\0') + size;
}

/// What a walk over one level finds: id, "<" when cut, body.
std::vector<std::string> found(const std::string& chunks, bool* damaged = nullptr)
{
    std::vector<std::string> list;
    ChunkReader reader(chunks);
    Chunk chunk;
    while (reader.next(chunk)) {
        const ChunkId id = chunk.isGroup() ? chunk.type : chunk.id;
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>(id >> shift);
        list.push_back(text + (chunk.isCut ? "<" : " ") + std::string(chunk.body));
    }
    if (damaged)
        *damaged = reader.isDamaged();
    return list;
}

}  // namespace

TEST(Chunk, GroupsHoldTypeAndPaddedChunks)
{
    const std::string container = written([](ChunkWriter& writer) {
        writer.beginGroup(kGroup, chunkId("Maya"));
        writer.chunk(chunkId("ABCD"), "12345");
        writer.beginGroup(kList, chunkId("CONS"));
        writer.end();
        writer.beginChunk(chunkId("LAST"));
        writer.stream() << "12345678";
        EXPECT_EQ(writer.end(), 8u);
        writer.end();
    });
    EXPECT_EQ(container, bytes("FOR8\0\0\0\0\0\0\0\0\0\0\0\x4c"
                               "Maya"
                               "ABCD\0\0\0\0\0\0\0\0\0\0\0\5"
                               "12345\0\0\0"
                               "LIS8\0\0\0\0\0\0\0\0\0\0\0\4"
                               "CONS\0\0\0\0"
                               "LAST\0\0\0\0\0\0\0\0\0\0\0\x8"
                               "12345678"
                               "\0\0\0\0",
                               96));
    ChunkReader reader(container);
    Chunk group;
    ASSERT_TRUE(reader.next(group));
    EXPECT_EQ(group.whole, container);
    bool damaged = true;
    EXPECT_THAT(found(std::string(group.body), &damaged), ElementsAre("ABCD 12345", "CONS ", "LAST 12345678"));
    EXPECT_FALSE(damaged);
    EXPECT_FALSE(reader.next(group) || reader.isDamaged());
    EXPECT_THAT(found(container.substr(0, 92)), ElementsAre(testing::StartsWith("Maya ")))
        << "the last padding may be missing";
}

TEST(Chunk, DamageEndsTheWalkAndKeepsWhatCameBefore)
{
    const std::string good = head("GOOD", "\3") + "abc" + std::string(5, '\0');
    const std::string zero(1, '\0');
    const struct {
        const char* what;
        std::string bytes;
        std::vector<std::string> expected;
    } cases[] = {
        {"a size beyond the end", head("LONG", "\x9") + "12345678", {"LONG<12345678"}},
        {"the largest size", head("HUGE", std::string(8, '\xff')) + "1", {"HUGE<1"}},
        {"a size that were negative", head("NEGA", "\x80" + std::string(7, '\0')), {"NEGA<"}},
        {"a head cut short", head("HEAD", "\1").substr(0, 15), {}},
        {"nothing but zeros", std::string(64, '\0'), {}},
        {"a number where zeros belong", "ABCD" + std::string(3, '\0') + '\1' + std::string(8, '\0'), {}},
        {"a group without room for its type", head("FOR8", "\3") + "abc" + std::string(5, '\0'), {}},
        {"a group cut in its type", head("FOR8", "\x10") + "ab", {}},
        {"a text", "this is no container at all", {}},
    };
    for (const auto& c : cases) {
        bool damaged = false;
        std::vector<std::string> expected{"GOOD abc"};
        expected.insert(expected.end(), c.expected.begin(), c.expected.end());
        EXPECT_EQ(found(good + c.bytes, &damaged), expected) << c.what;
        EXPECT_TRUE(damaged) << c.what;
    }
}

TEST(Chunk, EveryCutIsNoticedAndNothingIsReadBeyondIt)
{
    const std::string whole = written([](ChunkWriter& writer) {
        for (const char* body : {"", "1", "12345678", "123456789"})
            writer.chunk(chunkId("ABCD"), body);
    });
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        std::size_t used = 0;
        ChunkReader reader(cut);
        Chunk chunk;
        while (reader.next(chunk)) {
            EXPECT_EQ(chunk.whole.data(), cut.data() + used);
            used += chunk.whole.size();
        }
        EXPECT_LE(used, length);
        const bool isAtEnd = length == 0 || length == 16 || (length > 32 && length <= 40) || length == 64
                          || (length >= 89 && length <= whole.size());
        EXPECT_EQ(reader.isDamaged(), !isAtEnd) << length;
    }
}

TEST(PartStream, EndsWithItsBytesAndTellsWhatWasRead)
{
    const std::string around = "before" + std::string(9 << 20, 'x') + "end|beyond";
    const std::string_view part = std::string_view(around).substr(6, (9 << 20) + 3);
    std::size_t told = 0;
    PartStream in(part, [&](std::string_view done) {
        EXPECT_EQ(done.data(), part.data());
        told = done.size();
    });
    std::string start(5, '\0');
    in.read(&start[0], 5);
    EXPECT_EQ(start, "xxxxx");
    EXPECT_EQ(in.tellg(), 5);
    std::string rest(part.size(), '\0');
    in.read(&rest[0], static_cast<std::streamsize>(rest.size()));
    EXPECT_EQ(in.gcount(), static_cast<std::streamsize>(part.size() - 5));
    EXPECT_TRUE(in.eof() && in.fail());
    EXPECT_EQ(rest.substr(part.size() - 9, 4), "xend");
    EXPECT_EQ(told, std::size_t(8) << 20);

    in.clear();
    in.seekg(-3, std::ios::end);
    std::string word;
    in >> word;
    EXPECT_EQ(word, "end") << "and nothing of what follows";
    in.clear();
    in.seekg(1, std::ios::end);
    EXPECT_TRUE(in.fail());
    in.clear();
    in.seekg(-1, std::ios::beg);
    EXPECT_TRUE(in.fail());
}
