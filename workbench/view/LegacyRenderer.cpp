#include "view/LegacyRenderer.h"

#include "api/LegacyNodes.h"
#include "view/GlState.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>

namespace view {

namespace {

int depthOf(unsigned stack)
{
    int depth = 0;
    glGetIntegerv(stack, &depth);
    return depth;
}

/// Keeps the state of the fixed pipeline, the matrices and the target of drawing, whatever a module does to them.
class GuardedState {
public:
    GuardedState(const kernel::Matrix4& modelView, const kernel::Matrix4& projection)
        : m_modelView(modelView), m_projection(projection), m_framebuffer(boundFramebuffer())
    {
        for (Stack& stack : m_stacks) {
            stack.depth = depthOf(stack.name);
        }
        load();
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    }

    ~GuardedState()
    {
        glEnd();  // of a shape that a module did not come to finish
        bindFramebuffer(m_framebuffer);
        QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
        gl.glUseProgram(0);
        gl.glBindBuffer(GL_ARRAY_BUFFER, 0);
        gl.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
        for (const Stack& stack : m_stacks) {
            for (int depth = depthOf(stack.name); depth > stack.depth; --depth) {
                stack.pop();
            }
        }
        load();
        while (glGetError() != GL_NO_ERROR) {
        }
    }

    GuardedState(const GuardedState&) = delete;
    GuardedState& operator=(const GuardedState&) = delete;

private:
    struct Stack {
        unsigned name;
        void (*pop)();
        int depth = 0;
    };

    static void popMatrix(unsigned mode)
    {
        glMatrixMode(mode);
        glPopMatrix();
    }

    void load() const
    {
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glMatrixMode(GL_PROJECTION);
        glLoadMatrixd(&m_projection.m[0][0]);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixd(&m_modelView.m[0][0]);
    }

    const kernel::Matrix4 m_modelView;
    const kernel::Matrix4 m_projection;
    const unsigned m_framebuffer;
    Stack m_stacks[5] = {
        {GL_CLIENT_ATTRIB_STACK_DEPTH, [] { glPopClientAttrib(); }},
        {GL_ATTRIB_STACK_DEPTH, [] { glPopAttrib(); }},
        {GL_TEXTURE_STACK_DEPTH, [] { popMatrix(GL_TEXTURE); }},
        {GL_PROJECTION_STACK_DEPTH, [] { popMatrix(GL_PROJECTION); }},
        {GL_MODELVIEW_STACK_DEPTH, [] { popMatrix(GL_MODELVIEW); }},
    };
};

bool isSelected(const kernel::Session& session, const kernel::Node& shape)
{
    const auto& selection = session.scene.selection();
    return std::any_of(selection.begin(), selection.end(), [&](const kernel::NodePtr& node) {
        return node.get() == &shape || node.get() == shape.parent();
    });
}

/// Runs a module's code; empty, or what it threw.
template <typename Work>
std::string failureOf(Work work)
{
    try {
        work();
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
    return {};
}

}  // namespace

bool LegacyRenderer::hasFailed(const kernel::NodePtr& node) const
{
    return std::any_of(m_failed.begin(), m_failed.end(), [&](const auto& failed) { return failed.lock() == node; });
}

void LegacyRenderer::draw(kernel::Session& session, const api::FrameState& frame, api::View& view,
                          const ViewOptions& options)
{
    m_failed.erase(
        std::remove_if(m_failed.begin(), m_failed.end(), [](const auto& failed) { return failed.expired(); }),
        m_failed.end());
    for (const kernel::NodePtr& node : api::legacyNodes(session)) {
        if (hasFailed(node)) {
            continue;
        }
        std::string failure;
        {
            const GuardedState state(node->worldMatrix() * frame.matrices.view, frame.matrices.projection);
            glEnable(GL_DEPTH_TEST);
            failure =
                failureOf([&] { api::drawLegacyNode(node, view, options.wireframe, isSelected(session, *node)); });
        }
        if (!failure.empty()) {
            m_failed.push_back(node);
            session.output.error("Failed to draw " + node->name() + ": " + failure);
        }
    }
}

}  // namespace view
