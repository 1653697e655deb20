#pragma once

#include "kernel/AnimCurve.h"
#include "kernel/NodeType.h"
#include "kernel/Time.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace kernel {

class Scene;
class Node;
using NodePtr = std::shared_ptr<Node>;

/// An attribute of a node.
struct Plug {
    NodePtr node;
    AttributePtr attribute;
};

/// Content of one plug: numbers of every kind as a double (Float is rounded to single precision when set).
using PlugValue = std::variant<std::monostate, double, std::string, std::shared_ptr<CustomData>>;

/// A node's own flags of one attribute; they start as the attribute's and are saved with the scene.
struct PlugFlags {
    bool locked = false;
    bool keyable = false;
    bool channelBox = false;
    bool operator==(const PlugFlags& o) const
    {
        return locked == o.locked && keyable == o.keyable && channelBox == o.channelBox;
    }
};

/// What a plug holds by itself, whatever a curve gives it.
struct PlugState {
    PlugValue value;       ///< none: the attribute's default
    bool isAhead = false;  ///< it was set since its curve last spoke, and counts until time changes
};

/// A row-major 4x4 matrix with the translation in row 3: points are row vectors, p' = p * M.
struct Matrix4 {
    double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
Matrix4 operator*(const Matrix4& a, const Matrix4& b);
Matrix4 inverse(const Matrix4& m);
Vector3 transformPoint(const Vector3& p, const Matrix4& m);

/// What makes up a matrix: scale, then shear, then turn about x, y and z, then move.
struct Placement {
    double translate[3];
    double rotate[3];  ///< degrees
    double scale[3];
    double shear[3];  ///< xy, xz, yz
};
Placement placementOf(const Matrix4& matrix);

/// A node of the scene. Made by Scene; lives while the scene or an undo step holds it.
class Node : public std::enable_shared_from_this<Node> {
public:
    Node(const NodeType& type, std::string name);
    ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    const std::string& name() const { return m_name; }
    const std::string& uid() const { return m_uid; }
    void setUid(std::string uid) { m_uid = std::move(uid); }
    const NodeType& type() const { return *m_type; }
    /// Type name as written in scenes; for an unknown node the type it was read as.
    const std::string& typeName() const;
    bool isInScene() const { return m_scene != nullptr; }

    Node* parent() const { return m_parent; }
    const std::vector<std::shared_ptr<Node>>& children() const { return m_children; }

    /// Null when there is no such attribute (long or short name).
    AttributePtr attribute(const std::string& attributeName) const { return m_type->attribute(attributeName); }

    /// The value at the scene's current time, or the attribute's default. Compounds give monostate.
    PlugValue value(const AttributeSpec& attribute) const;
    double number(const std::string& attributeName) const;  ///< 0 when there is none
    std::string text(const std::string& attributeName) const;
    /// Sets without regard to locks and ranges and without undo; the scene is told (redraw, modified). An animated
    /// attribute keeps the value until time changes.
    void setValue(const AttributeSpec& attribute, PlugValue value);
    bool isDefault(const AttributeSpec& attribute) const;

    PlugFlags flags(const AttributeSpec& attribute) const;
    void setFlags(const AttributeSpec& attribute, PlugFlags flags);
    bool hasOwnFlags(const AttributeSpec& attribute) const;

    /// Whether a scene file must say this value: it differs from the attribute's default, or a new scene starts this
    /// node with another one.
    bool isValueStored(const AttributeSpec& attribute) const;
    /// From now on the node counts as starting with what it holds: one of every scene, or of a referenced file.
    void rememberStart() { m_startState = std::make_unique<State>(m_state); }
    /// Whether value or flags are no longer those the node started with.
    bool isChanged(const AttributeSpec& attribute) const;
    /// The flags a new scene starts this node with; for most nodes the attribute's.
    PlugFlags initialFlags(const AttributeSpec& attribute) const;

    /// Whether a curve of the scene gives the attribute its value.
    bool isAnimated(const AttributeSpec& attribute) const { return curveOf(attribute) != nullptr; }
    /// Whether that curve has a key at the scene's current time.
    bool hasKeyNow(const AttributeSpec& attribute) const;
    /// The curve's node; null for none.
    NodePtr curveOf(const AttributeSpec& attribute) const;
    /// The animated attributes, in the order of their names.
    std::vector<AttributePtr> animatedAttributes() const;
    /// The value at a time; what is not animated has one for all times.
    PlugValue valueAt(const AttributeSpec& attribute, const Time& time) const;
    /// Lets a curve's node give the attribute, which is a number, its value. Null: the attribute has the value it holds
    /// by itself again.
    void setCurve(const AttributePtr& attribute, const NodePtr& curve);
    PlugState plugState(const AttributeSpec& attribute) const;
    void setPlugState(const AttributeSpec& attribute, PlugState state);

    /// The keys of a curve's node; null for other nodes.
    const AnimCurve* curve() const { return m_curve.get(); }
    /// Does what is wanted to the keys of a curve's node; what it drives follows at once.
    void changeCurve(const std::function<void(AnimCurve&)>& change);
    /// What a curve's node drives in the scene.
    std::vector<Plug> drivenPlugs() const;

    /// Local matrix of a transform (identity for other nodes): scale and shear about the scale pivot, rotate in its
    /// rotate order about the rotate pivot, translate.
    Matrix4 localMatrix() const;
    Matrix4 worldMatrix() const;  ///< inclusive
    bool isVisible() const;       ///< its own and every ancestor's visibility

    NodeProxy* proxy() const { return m_proxy.get(); }
    void setProxy(std::unique_ptr<NodeProxy> proxy) { m_proxy = std::move(proxy); }

    /// Its place in the order in which nodes were made.
    unsigned long long serial() const { return m_serial; }

    bool shared = false;         ///< startup cameras, default nodes: written with -s, not created twice
    bool startup = false;        ///< cannot be deleted
    bool isDefaultNode = false;  ///< time1 and the like: written as `select -ne`
    bool referenced = false;     ///< belongs to a file that the scene references
    bool isReadOnly() const;     ///< cannot be deleted or renamed
    /// What its file calls the parent that was not there: below a reference that is not loaded, for instance. Written
    /// back until the node is parented. Only a node of the DAG without a parent has one.
    std::string absentParent;
    /// Statements of an unknown node that could not be applied, kept word for word and written back.
    std::vector<std::string> unknownStatements;
    std::string unknownType;  ///< set when the real type was not available
    /// What an unknown node was in a binary scene: the type's identifier (0: in none) and its chunks, written back as
    /// they are.
    std::uint32_t binaryType = 0;
    std::string binaryChunks;

private:
    friend class Scene;
    struct State {
        std::unordered_map<std::string, PlugValue> values;  ///< by long name
        std::unordered_map<std::string, PlugFlags> flags;
    };

    struct Driver {
        NodePtr curve;
        bool isAhead = false;
    };
    struct Driven {
        std::weak_ptr<Node> node;
        AttributePtr attribute;
    };

    bool isSceneTime(const AttributeSpec& attribute) const;
    void changed();
    void tellChanged(const AttributeSpec& attribute);
    PlugValue heldValue(const AttributeSpec& attribute) const;
    PlugValue animatedValue(const AttributeSpec& attribute) const;
    Driver* driver(const AttributeSpec& attribute) const;
    std::optional<double> curveNumber(const AttributeSpec& attribute, double ticks, bool heedsAhead) const;
    /// What this curve drives has its value from now on, until it is set again.
    void followTime();
    void tellDriven();

    std::string m_name;
    std::string m_uid;
    unsigned long long m_serial = 0;
    const NodeType* m_type;
    Scene* m_scene = nullptr;
    Node* m_parent = nullptr;
    std::vector<std::shared_ptr<Node>> m_children;
    State m_state;
    std::unique_ptr<State> m_startState;  ///< null for a node that starts with its attributes' defaults
    std::unique_ptr<NodeProxy> m_proxy;
    std::unique_ptr<std::map<std::string, Driver>> m_drivers;  ///< by long name; null for most nodes
    std::unique_ptr<AnimCurve> m_curve;
    std::vector<Driven> m_driven;  ///< by this curve, nodes that left the scene included
};

/// Gives a transform, locked or not, the values with which its local matrix is this one; its pivots stay. One whose
/// type is not available keeps what it has.
void placeLocally(Node& transform, const Matrix4& local);

/// Orders nodes as they were made.
inline bool isOlder(const NodePtr& a, const NodePtr& b)
{
    return a->serial() < b->serial();
}

}  // namespace kernel
