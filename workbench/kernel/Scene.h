#pragma once

#include "kernel/Node.h"
#include "kernel/Time.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kernel {

class Session;

enum class FileActivity { None, New, Open, Import, Reference, Write };

/// Nodes, selection, time and file state of the scene. Its operations are plain: undo is the business of the
/// edits (Edits.h) built on them.
class Scene {
public:
    explicit Scene(Session& session);
    ~Scene();

    // --- nodes -----------------------------------------------------------------------------------------------
    /// Makes a node that is not in the scene yet. The name is made unique when it enters.
    NodePtr makeNode(const NodeType& type, const std::string& name);
    /// Puts a node (with whatever children it has) under `parent` (null: the world) at `index` (-1: last).
    /// A name clash with a sibling (DAG) or any node (others) gives the next free number.
    void attach(const NodePtr& node, Node* parent = nullptr, int index = -1);
    /// Takes a node with its children out of the graph and the selection; whoever holds it keeps it alive.
    void detach(const NodePtr& node);
    /// Place for attach() to put it back.
    int childIndex(const Node& node) const;
    /// Renames; a shape called <name>Shape follows its transform. Gives the name really used.
    std::string rename(Node& node, const std::string& name);
    void setParent(const NodePtr& node, Node* parent);

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

    // --- selection -------------------------------------------------------------------------------------------
    const std::vector<NodePtr>& selection() const { return m_selection; }
    /// Raises SelectionChanged at the end of the outermost command, even when nothing changed.
    void setSelection(std::vector<NodePtr> nodes);
    void deliverSelectionEvent();  ///< called by whoever ends an outermost command or tool event

    // --- time ------------------------------------------------------------------------------------------------
    Time currentTime() const;               ///< in the current unit
    void setCurrentTime(const Time& time);  ///< raises timeChanged at once
    TimeUnit timeUnit() const { return m_unit; }
    void setTimeUnit(TimeUnit unit);  ///< rescales nothing but keeps the instants; raises timeUnitChanged
    struct Range {
        double first;
        double last;
    };
    Range playbackRange() const { return m_playback; }  ///< in the current unit
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
    bool isModified() const { return m_modified; }
    void setModified(bool on = true) { m_modified = on; }
    FileActivity activity() const { return m_activity; }
    /// Sets the activity for its lifetime.
    class Activity {
    public:
        Activity(Scene& scene, FileActivity activity) : m_scene(scene), m_before(scene.m_activity)
        {
            scene.m_activity = activity;
        }
        ~Activity() { m_scene.m_activity = m_before; }
        Activity(const Activity&) = delete;
        Activity& operator=(const Activity&) = delete;

    private:
        Scene& m_scene;
        FileActivity m_before;
    };

    /// Everything gone but the startup cameras and default nodes at their default values; 24 frames a second,
    /// playback 1 to 24, animation 1 to 48, time 1; raises no event.
    void reset();
    /// Statements that are written back as they were read (requires of missing modules, fileInfo, ...).
    std::vector<std::string> keptStatements;

    /// Something visible changed; views repaint when the host is idle.
    void touch();
    void setTouchListener(std::function<void()> listener) { m_touched = std::move(listener); }

    /// Turns every node of a type into an unknown node that keeps its data, and destroys the proxies, those of
    /// nodes only the undo queue holds included. Called when the type goes away.
    void orphanNodesOf(const NodeType& type);

private:
    friend class Node;
    Session& m_session;
    std::vector<NodePtr> m_nodes;
    std::vector<NodePtr> m_roots;
    std::vector<NodePtr> m_selection;
    std::vector<std::weak_ptr<Node>> m_all;  ///< every node ever made that still lives
    bool m_selectionEventDue = false;
    Time m_time;
    TimeUnit m_unit = TimeUnit::Film;
    Range m_playback{1, 24};
    Range m_animation{1, 48};
    Range m_sliderRange{1, 2};
    bool m_hasSliderRange = false;
    std::string m_fileName;
    bool m_modified = false;
    FileActivity m_activity = FileActivity::None;
    std::function<void()> m_touched;
};

}  // namespace kernel
