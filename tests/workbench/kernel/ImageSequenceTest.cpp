#include "kernel/ImageSequence.h"

#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

TEST(ImageSequence, TheLastNumberBeforeTheExtensionIsReplacedInItsWidth)
{
    const struct {
        const char* path;
        int number;
        const char* file;
    } cases[] = {
        {"/a/plate.0001.png", 12, "/a/plate.0012.png"},
        {"/a/plate_12.jpg", 7, "/a/plate_07.jpg"},
        {"/a/plate.#.png", 100, "/a/plate.100.png"},
        {"plate.####.png", 3, "plate.0003.png"},
        {"/a1/shot2.0009.exr", 10, "/a1/shot2.0010.exr"},
        {"plate9.png", 10, "plate10.png"},
        {"v2_plate.png", 5, "v5_plate.png"},
        {"/a.1/plate.png", 5, "/a.1/plate.png"},
        {"/a.1/plate", 5, "/a.1/plate"},
        {"/a/frame12", 5, "/a/frame05"},
        {"plate.0001.png", -3, "plate.-0003.png"},
        {".0001", 2, ".0002"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(kernel::sequenceFile(c.path, c.number), c.file) << c.path;
    }
}

TEST(ImageSequence, AFileIsOfOneWhenItsNeighbourIsThere)
{
    std::string name = (std::filesystem::temp_directory_path() / "platesXXXXXX").string();
    const std::filesystem::path folder = mkdtemp(name.data());
    for (const char* file : {"p.0001.png", "p.0002.png", "lone.0004.png", "still.png"}) {
        std::ofstream(folder / file) << "x";
    }
    const auto isOf = [&folder](const char* file) { return kernel::isOfSequence((folder / file).string()); };
    EXPECT_TRUE(isOf("p.0001.png"));
    EXPECT_TRUE(isOf("p.0002.png"));
    EXPECT_FALSE(isOf("lone.0004.png"));
    EXPECT_FALSE(isOf("still.png"));
    EXPECT_FALSE(isOf("p.####.png")) << "no file";
    EXPECT_FALSE(isOf("p.99999999999999999999.png"));
    std::filesystem::remove_all(folder);
}
