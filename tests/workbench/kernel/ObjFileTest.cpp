#include "kernel/ObjFile.h"

#include "kernel/Command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using kernel::MeshData;
using testing::ElementsAre;

namespace {

const std::string kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

/// The corners of every face of the only object.
std::vector<std::vector<int>> facesOf(const std::string& text)
{
    const auto objects = kernel::readObj(text);
    std::vector<std::vector<int>> faces;
    if (objects.size() == 1 && objects[0].mesh->isWhole()) {
        for (const MeshData::Face& face : objects[0].mesh->faces) {
            faces.push_back(objects[0].mesh->corners(face));
        }
    }
    return faces;
}

std::string errorOf(const std::string& text)
{
    try {
        kernel::readObj(text);
        return "none";
    } catch (const kernel::CommandError& error) {
        return error.what();
    }
}

std::vector<bool> smoothEdges(const std::string& text)
{
    std::vector<bool> edges;
    for (const auto& object : kernel::readObj(text)) {
        for (const MeshData::Edge& edge : object.mesh->edges) {
            edges.push_back(edge.isSmooth);
        }
    }
    return edges;
}

}  // namespace

TEST(ObjFile, ReadsEveryFormOfAFace)
{
    const std::string textured = kSquare + "vt 0 0\nvt 1 0\nvt 1 1\nvn 0 0 1\n";
    const char* const faces[] = {
        "f 1 2 3 4\n",     "f 1/1 2/2 3/3 4/3\n",    "f 1/1/1 2/2/1 3/3/1 4/3/1\n", "f 1//1 2//1 3//1 4//1",
        "f -4 -3 -2 -1\n", "f 1 2 \\\n 3 \\\r\n4\n", "  f\t1 2  3 4 # rim\n",       "g side\nusemtl red\nf 1 2 3 4\n"};
    for (const char* face : faces) {
        EXPECT_THAT(facesOf(textured + face), ElementsAre(ElementsAre(0, 1, 2, 3))) << face;
    }
    EXPECT_THAT(facesOf("v 0 0 0 1.0\r\nv 1 0 0 0.5 0.5 0.5\r\nv 1 1 0\r\nf 1 2 3\r\n"),
                ElementsAre(ElementsAre(0, 1, 2)));
    EXPECT_THAT(facesOf(kSquare + "f 1 2 3\nv 5 5 5\nf -1 -2 -3\n"),
                ElementsAre(ElementsAre(0, 1, 2), ElementsAre(3, 4, 2)))
        << "negative indices count from where they stand";
}

TEST(ObjFile, NeighboursShareAnEdge)
{
    const auto objects = kernel::readObj(kSquare + "f 1 2 3\nf 1 3 4\n");
    ASSERT_EQ(objects.size(), 1u);
    EXPECT_EQ(objects[0].mesh->edges.size(), 5u);
    EXPECT_THAT(objects[0].mesh->faces, ElementsAre(ElementsAre(0, 1, 2), ElementsAre(-3, 3, 4)));
}

TEST(ObjFile, EdgesAreSmoothWhereBothFacesAre)
{
    EXPECT_THAT(smoothEdges(kSquare + "f 1 2 3\nf 1 3 4\n"), ElementsAre(false, false, false, false, false));
    EXPECT_THAT(smoothEdges(kSquare + "s 1\nf 1 2 3\ns off\nf 1 3 4\n"), ElementsAre(true, true, false, false, false));
    EXPECT_THAT(smoothEdges(kSquare + "f 1//1 2//2 3//3\nf 1//1 3//1 4//1\n"),
                ElementsAre(true, true, false, false, false))
        << "a face whose corners have normals of their own is bent";
}

TEST(ObjFile, SaysWhichLineIsBad)
{
    const struct {
        std::string text;
        const char* error;
    } cases[] = {
        {"v 0 0\n", "line 1: a point needs three numbers."},
        {"v 0 0 0\n\n# nothing\nv 1 x 0\n", "line 4: a point needs three numbers."},
        {"v 1e999 0 0\n", "line 1: a point needs three numbers."},
        {"v nan 0 0\n", "line 1: a point needs three numbers."},
        {kSquare + "f 1 2\n", "line 5: a face needs three corners."},
        {kSquare + "f 1 2 5\n", "line 5: there is no point 5."},
        {kSquare + "f 1 2 -5\n", "line 5: there is no point -5."},
        {kSquare + "f 1 2 0\n", "line 5: \"0\" is no corner of a face."},
        {kSquare + "f 1 2 99999999999\n", "line 5: \"99999999999\" is no corner of a face."},
        {kSquare + "f 1 \\\n2 \\\n/3\n", "line 5: \"/3\" is no corner of a face."},
        {"f 1 2 3\n", "line 1: there is no point 1."},
        {"f 1 2 -2147483648\n", "line 1: there is no point 1."},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(errorOf(c.text), c.error) << c.text;
    }
    EXPECT_EQ(errorOf(""), "none");
    EXPECT_EQ(errorOf("\\"), "none") << "a line that goes on into nothing";
}
