#pragma once

#include "kernel/NodeType.h"
#include "kernel/Value.h"

#include <vector>

namespace kernel {

/// The surface of a mesh: points, the edges between them and faces, which are rings of edges. Whoever holds one may
/// count on isWhole(); it does not change once a node has it.
class MeshData : public CustomData {
public:
    struct Edge {
        int from = 0;  ///< places among the points
        int to = 0;
        bool isSmooth = false;  ///< the faces at it are shaded as one
        bool operator==(const Edge& o) const { return from == o.from && to == o.to && isSmooth == o.isSmooth; }
    };
    /// Places among the edges, in the order of the face's corners, which go round counter-clockwise seen from outside.
    /// An edge that the face runs along backwards is -(place + 1).
    using Face = std::vector<int>;

    std::vector<Vector3> points;
    std::vector<Edge> edges;
    std::vector<Face> faces;

    /// Whether every number is finite, every place exists and every face is a ring of three edges or more.
    bool isWhole() const;
    /// The points of a face in order.
    std::vector<int> corners(const Face& face) const;

    std::string typeName() const override { return "mesh"; }
    std::uint32_t typeId() const override;
    bool writeText(std::ostream& out) override;
    bool readText(const Arguments& args, unsigned& next) override;
    bool writeBinary(std::ostream& out) override;
    bool readBinary(std::istream& in, unsigned length) override;
    std::shared_ptr<CustomData> copy() const override;

private:
    int start(int edge) const { return edge >= 0 ? edges[std::size_t(edge)].from : edges[std::size_t(-edge - 1)].to; }
    int end(int edge) const { return edge >= 0 ? edges[std::size_t(edge)].to : edges[std::size_t(-edge - 1)].from; }
    bool isEdge(int edge) const;
};

/// The surface a mesh node holds; null for a node of another type and for one without any.
std::shared_ptr<const MeshData> meshDataOf(const Node& node);

void addHostDataTypes(DataTypes& types);

}  // namespace kernel
