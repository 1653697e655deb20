#include "kernel/Scene.h"
#include "kernel/Session.h"

#include <optional>

namespace kernel {

namespace {

struct StartupCamera {
    const char* name;
    Vector3 translate;
    Vector3 rotate;
    bool orthographic;
    double centerOfInterest;
    const char* homeCommand;
};

// The tiny turn about z is the host's own: its files hold it.
const StartupCamera kStartupCameras[] = {
    {"persp",
     {28, 21, 28},
     {-27.938352729602379, 44.999999999999972, -5.172681101354183e-14},
     false,
     44.82186966202994,
     "viewSet -p %camera"},
    {"top", {0, 1000.1, 0}, {-90, 0, 0}, true, 1000.1, "viewSet -t %camera"},
    {"front", {0, 0, 1000.1}, {0, 0, 0}, true, 1000.1, "viewSet -f %camera"},
    {"side", {1000.1, 0, 0}, {0, 90, 0}, true, 1000.1, "viewSet -s %camera"},
};

constexpr double kStartupOrthographicWidth = 30;

const char* const kDefaultNodes[][2] = {
    // type             name
    {"time", "time1"},
    {"renderGlobals", "defaultRenderGlobals"},
    {"resolution", "defaultResolution"},
};

void set(Node& node, const char* attribute, PlugValue value)
{
    node.setValue(*node.attribute(attribute), std::move(value));
}

void setTriple(Node& node, const std::string& name, const Vector3& v)
{
    set(node, (name + 'X').c_str(), v.x);
    set(node, (name + 'Y').c_str(), v.y);
    set(node, (name + 'Z').c_str(), v.z);
}

void dress(Node& transform, Node& shape, const StartupCamera& camera)
{
    const std::string name = camera.name;
    setTriple(transform, "translate", camera.translate);
    setTriple(transform, "rotate", camera.rotate);
    set(transform, "visibility", 0.0);

    set(shape, "visibility", 0.0);
    PlugFlags flags;  // not keyable
    shape.setFlags(*shape.attribute("visibility"), flags);
    set(shape, "centerOfInterest", camera.centerOfInterest);
    set(shape, "homeCommand", camera.homeCommand);
    set(shape, "imageName", name);
    set(shape, "depthName", name + "_depth");
    set(shape, "maskName", name + "_mask");
    if (camera.orthographic) {
        set(shape, "renderable", 0.0);
        set(shape, "orthographic", 1.0);
        set(shape, "orthographicWidth", kStartupOrthographicWidth);
    }
}

}  // namespace

void Scene::reset()
{
    std::optional<Activity> quiet;
    if (!isBusyWithFile())
        quiet.emplace(*this, FileActivity::New);
    if (!m_selection.empty())
        setSelection({});
    while (!m_roots.empty())
        detach(m_roots.back());
    while (!m_nodes.empty())
        detach(m_nodes.back());
    keptStatements.clear();
    references.clear();
    m_namespaces.clear();
    m_unit = TimeUnit::Film;
    m_time = Time{1, m_unit};
    m_playback = {1, 24};
    m_animation = {1, 48};
    m_hasSliderRange = false;
    m_fileName.clear();
    m_fileType.reset();
    m_readErrors = false;
    addStartupCameras();
    addDefaultNodes();
    storeTimeInNode();
    m_modified = false;
}

void Scene::addStartupCameras()
{
    for (const StartupCamera& camera : kStartupCameras) {
        const NodePtr transform = makeNode(*m_session.nodeTypes.find("transform"), camera.name);
        const NodePtr shape = makeNode(*m_session.nodeTypes.find("camera"), camera.name + std::string("Shape"));
        dress(*transform, *shape, camera);
        attach(transform);
        attach(shape, transform.get());
        for (const NodePtr& node : {transform, shape}) {
            node->shared = true;
            node->startup = true;
            node->rememberStart();
        }
    }
}

void Scene::addDefaultNodes()
{
    for (const auto& row : kDefaultNodes) {
        const NodePtr node = makeNode(*m_session.nodeTypes.find(row[0]), row[1]);
        attach(node);
        node->shared = true;
        node->isDefaultNode = true;
    }
}

}  // namespace kernel
