#pragma once

#include "kernel/ChangeListener.h"
#include "kernel/NameIndex.h"
#include "kernel/Node.h"
#include "kernel/Reference.h"
#include "kernel/SceneFileType.h"
#include "kernel/Time.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kernel {

class Session;

enum class FileActivity { New, Open, Import, Reference, Write };

/// Nodes, selection, time and file state of the scene. Its operations are plain: undo is the business of the
/// edits (Edits.h) built on them.
class Scene {
public:
    explicit Scene(Session& session);
    ~Scene();

    // --- nodes -----------------------------------------------------------------------------------------------
    /// Makes a node that is not in the scene yet. The name is made unique when it enters.
    NodePtr makeNode(const NodeType& type, const std::string& name);
    /// Makes a node that stands for one whose type is not available. isDag: it is read as a shape, not as a node
    /// outside the DAG.
    NodePtr makeUnknownNode(const std::string& typeName, const std::string& name, bool isDag);
    /// Makes an unknown node of the scene one that can have children, as it turns out to be of a transform's kind.
    void makeUnknownTransform(const NodePtr& node);
    /// Puts a node (with whatever children it has) under `parent` (null: the world) at `index` (-1: last).
    /// A name clash with a sibling (DAG) or any node (others) gives the next free number. Throws CommandError when the
    /// parent cannot have children or is not in the scene.
    void attach(const NodePtr& node, Node* parent = nullptr, int index = -1);
    /// Takes a node with its children out of the graph and the selection; whoever holds it keeps it alive.
    void detach(const NodePtr& node);
    /// Place for attach() to put it back.
    int childIndex(const Node& node) const;
    /// Renames; a shape named after its transform (ball, ballShape; ball2, ballShape2) follows it. Characters no name
    /// may have become "_", a "#" at the end the first free number. Gives the name really used.
    std::string rename(Node& node, const std::string& name);
    /// Gives nodes the names they had before, the last first, as the way back is; for undo. A name that another node
    /// has taken since gets the next free number.
    void restoreNames(const std::vector<std::pair<NodePtr, std::string>>& names);
    /// Throws CommandError for a parent that cannot have it, such as one of its own children.
    void setParent(const NodePtr& node, Node* parent, int index = -1);

    /// The serial the next node made will have; those of a stretch of work are the ones from it on.
    unsigned long long nextSerial() const { return m_nextSerial; }
    /// Every node in order of creation; DAG roots in order.
    const std::vector<NodePtr>& nodes() const { return m_nodes; }
    const std::vector<NodePtr>& roots() const { return m_roots; }
    /// Depth first over the DAG; the callback gives false to skip a node's children.
    void walkDag(const std::function<bool(Node&)>& visit) const;
    std::vector<NodePtr> cameras() const;  ///< camera shapes: startup ones by name, then by creation

    /// Nodes of a name, a partial path or a pattern with * and ?; ":name" is the root namespace.
    std::vector<NodePtr> find(const std::string& nameOrPattern) const;
    /// The one node of a name. Throws CommandError with the host's wording for none or several.
    NodePtr findOne(const std::string& name) const;
    NodePtr findOrNull(const std::string& name) const;  ///< null for none or several
    /// Node and attribute of "node.attr" (attr may be "t.tx", long or short). Throws CommandError.
    std::pair<NodePtr, AttributePtr> findPlug(const std::string& plug) const;
    std::string uniqueName(const std::string& wanted) const;
    std::string fullPath(const Node& node) const;     ///< "|a|b"; plain name for non-DAG nodes
    std::string partialPath(const Node& node) const;  ///< shortest unique path
    static bool isLegalName(const std::string& name);
    /// What the shape of a transform is called: of ball ballShape, of ball2 ballShape2.
    static std::string shapeName(const std::string& transform);
    /// The wanted name with what no name may hold replaced; a "#" at the end, which asks for a number, is kept.
    static std::string legalName(const std::string& wanted);

    /// Whether a namespace has nodes, is a reference's, or was added. Without a colon at the end, like all of these.
    bool hasNamespace(const std::string& name) const;
    bool isNamespaceEmpty(const std::string& name) const;
    /// Whether a text means the namespace that holds all others: empty, or nothing but colons.
    static bool isRootNamespace(const std::string& name) { return name.find_first_not_of(':') == std::string::npos; }
    void addNamespace(const std::string& name) { m_namespaces.insert(name); }
    void removeNamespace(const std::string& name) { m_namespaces.erase(name); }
    /// The wanted namespace, or the first with a number behind it that does not exist yet.
    std::string freeNamespace(const std::string& wanted) const;

    // --- selection -------------------------------------------------------------------------------------------
    const std::vector<NodePtr>& selection() const { return m_selection; }
    /// SelectionChanged is raised when the host is next idle, once for all changes until then, even when they add up
    /// to none.
    void setSelection(std::vector<NodePtr> nodes);

    // --- time ------------------------------------------------------------------------------------------------
    Time currentTime() const;  ///< in the current unit
    /// What is animated has its value of that time. Raises timeChanged at once.
    void setCurrentTime(const Time& time);
    /// Tells of every animated attribute that it changed, as is done whenever time does but during playback.
    void tellAnimated();
    TimeUnit timeUnit() const { return m_unit; }
    /// Keeps the instants of the current time, the ranges and the nodes' time attributes: their numbers are rescaled.
    /// Raises timeUnitChanged. Ignored for a unit without a name.
    void setTimeUnit(TimeUnit unit);
    struct Range {
        double first;
        double last;
    };
    Range playbackRange() const { return m_playback; }  ///< in the current unit
    /// An end before the start becomes start + 1. Widens the animation range to hold it; that in turn pulls the
    /// playback range inside when it is set.
    void setPlaybackRange(Range range);
    Range animationRange() const { return m_animation; }
    void setAnimationRange(Range range);
    /// Highlighted range of the time slider, end exclusive; {now, now + 1} without a highlight.
    Range sliderRange() const;
    bool isSliderRangeVisible() const { return m_hasSliderRange; }
    void highlightSliderRange(Range range);
    void clearSliderRange() { m_hasSliderRange = false; }

    // --- file ------------------------------------------------------------------------------------------------
    const std::string& fileName() const { return m_fileName; }
    void setFileName(std::string name) { m_fileName = std::move(name); }
    /// The type it was read or saved in, or is to be saved in; none for a new scene.
    std::optional<SceneFileType> fileType() const { return m_fileType; }
    void setFileType(std::optional<SceneFileType> type) { m_fileType = type; }
    /// Whether statements of the file could not be read when it was opened.
    bool wasReadWithErrors() const { return m_readErrors; }
    void setReadWithErrors(bool on) { m_readErrors = on; }
    bool isModified() const { return m_modified; }
    void setModified(bool on = true) { m_modified = on; }
    /// Several may go on at once: a file that is opened may reference another.
    bool isDoing(FileActivity activity) const { return (m_activities & bit(activity)) != 0; }
    bool isBusyWithFile() const { return m_activities != 0; }
    /// The activity goes on for its lifetime.
    class Activity {
    public:
        Activity(Scene& scene, FileActivity activity) : m_scene(scene), m_before(scene.m_activities)
        {
            scene.m_activities |= bit(activity);
        }
        ~Activity() { m_scene.m_activities = m_before; }
        Activity(const Activity&) = delete;
        Activity& operator=(const Activity&) = delete;

    private:
        Scene& m_scene;
        const unsigned m_before;
    };
    /// While one lives, a change of the time unit says how the times are meant that come in from now on: all there was
    /// before keeps its numbers. In the end what came in is rescaled to the unit that was there first.
    class ForeignTimes {
    public:
        explicit ForeignTimes(Scene& scene);
        ~ForeignTimes();
        ForeignTimes(const ForeignTimes&) = delete;
        ForeignTimes& operator=(const ForeignTimes&) = delete;

    private:
        Scene& m_scene;
        const TimeUnit m_unitBefore;
        const unsigned long long m_firstBefore;
    };

    /// Everything gone but the startup cameras and default nodes at their default values; 24 frames a second,
    /// playback 1 to 24, animation 1 to 48, time 1; raises no event.
    void reset();
    /// Statements that are written back as they were read (requires of missing modules, fileInfo, ...).
    std::vector<std::string> keptStatements;
    /// Other files whose nodes the scene shows, those it references itself.
    ReferenceList references;

    /// What the scene file holds changed: the scene is modified (unless a file is being read or written) and views
    /// repaint when the host is idle.
    void touch();
    /// Views repaint when the host is idle; the scene does not count as modified.
    void requestRedraw();
    void setTouchListener(std::function<void()> listener) { m_touched = std::move(listener); }

    /// Turns every node of a type into an unknown node that keeps its data, and destroys the proxies, those of
    /// nodes only the undo queue holds included. Called when the type goes away.
    void orphanNodesOf(const NodeType& type);

private:
    friend class Node;
    void checkParent(const Node& node, const Node* parent) const;
    void addToScene(const NodePtr& node);
    void removeFromScene(const NodePtr& node);
    bool isNameTaken(const std::string& name, const Node& node, const Node* parent) const;
    std::string freeName(const std::string& wanted, const Node& node, const Node* parent) const;
    void giveName(Node& node, const std::string& name);
    void raise(const char* event);
    void tell(const std::function<void(ChangeListener& listener)>& report);
    void selectionChanged();
    void addStartupCameras();
    void addDefaultNodes();
    void storeTimeInNode();
    void followTime();
    void convertTimeValues(TimeUnit from, TimeUnit to);
    static unsigned bit(FileActivity activity) { return 1u << static_cast<unsigned>(activity); }
    void orphan(Node& node);
    void keepAsStatements(Node& node, const AttributeSpec& attribute);

    Session& m_session;
    std::vector<NodePtr> m_nodes;
    std::vector<NodePtr> m_roots;
    mutable NameIndex m_names;                     ///< of m_nodes; who asks for a free name leaves a note
    std::map<unsigned long long, Node*> m_curves;  ///< those of m_nodes, by serial
    std::vector<NodePtr> m_selection;
    std::vector<std::weak_ptr<Node>> m_all;  ///< every node ever made that still lives
    std::size_t m_pruneAt = 64;              ///< size of m_all at which the dead are taken out
    unsigned long long m_nextSerial = 1;
    bool m_selectionEventDue = false;
    Time m_time;
    TimeUnit m_unit = TimeUnit::Film;
    Range m_playback{1, 24};
    Range m_animation{1, 48};
    Range m_sliderRange{1, 2};
    bool m_hasSliderRange = false;
    std::set<std::string> m_namespaces;  ///< those that were added
    std::string m_fileName;
    std::optional<SceneFileType> m_fileType;
    bool m_modified = false;
    bool m_readErrors = false;
    unsigned m_activities = 0;              ///< a bit for each that goes on
    unsigned long long m_firstForeign = 0;  ///< serial from which on nodes follow a foreign time unit; 0: none do
    std::function<void()> m_touched;
};

}  // namespace kernel
