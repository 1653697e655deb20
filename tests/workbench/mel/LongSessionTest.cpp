#include "workbench/mel/ScriptHost.h"

#include "kernel/SceneFile.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

constexpr int kCommands = 300;

/// Makes up commands that suit the scene as it is; some are refused all the same. The same seed gives the same ones.
class Animator {
public:
    Animator(const kernel::Scene& scene, unsigned seed) : m_scene(scene), m_random(seed) {}

    std::string nextCommand()
    {
        switch (upTo(27)) {
        case 0: return "createNode transform -n " + name();
        case 1: return "createNode transform -n " + name() + " -p " + node();
        case 2: return "createNode locator -n " + name() + "Shape -p " + node();
        case 3: return "camera -n " + name() + " -fl " + number(20, 90) + " -p 0 " + number(-9, 9) + " 5";
        case 4: return "camera -e -ff " + oneOf({"fill", "horizontal", "overscan"}) + " -lt on " + node();
        case 5: return "delete " + node();
        case 6: return "rename " + node() + " " + name();
        case 7: return "rename " + node() + " \"" + name() + "#\"";
        case 8: return "move " + oneOf({"-r ", "-a ", "-r -os ", ""}) + number(-9, 9) + " 1 2 " + node();
        case 9: return "setAttr " + node() + "." + oneOf({"tx", "ry", "sz", "v", "noSuch"}) + " " + number(-5, 5);
        case 10: return "setAttr " + oneOf({"-l on ", "-l off ", "-k off "}) + node() + "." + oneOf({"tx", "ry", "v"});
        case 11: return "setAttr perspShape.fl " + number(20, 90) + "; setAttr " + node() + ".s 1 2 x";
        case 12: return "select " + oneOf({"-r ", "-add ", "-tgl ", "-d ", "-cl "}) + node();
        case 13: return "parent " + node() + " " + node();
        case 14: return "parent -w " + oneOf({"-r ", ""}) + node();
        case 15: return "currentTime " + number(-20, 200) + "; select " + node();
        case 16: return "duplicate " + oneOf({"", "-n " + name() + " "}) + node();
        case 17: return "setKeyframe -t " + number(1, 9) + " -v " + number(-5, 5) + " " + keyable();
        case 18: return "setKeyframe -ott " + oneOf({"step", "linear"}) + " -t 5 " + node();
        case 19: return "cutKey -t \"" + number(1, 6) + ":" + number(4, 9) + "\" " + node();
        case 20: return "keyframe -e -r -tc " + number(-3, 3) + " -vc 1 " + keyable();
        case 21: return "keyTangent -itt linear -ott " + oneOf({"step", "linear"}) + " " + keyable();
        case 22: return "connectAttr " + oneOf({"", "-f "}) + curve() + ".o " + keyable();
        case 23: return "disconnectAttr " + curve() + ".o " + keyable();
        case 24: return "delete " + curve();
        case 25: return "setKeyframe -t " + number(1, 9) + " ball.tx; setAttr ball.tx " + number(-5, 5);
        case 26: return "playbackOptions -min " + number(1, 20) + " -max " + number(10, 90) + " -ast 0";
        default: return "currentUnit -t " + oneOf({"film", "pal", "ntsc", "ntscf", "2fps"});
        }
    }

private:
    unsigned upTo(unsigned last) { return unsigned(m_random() % (last + 1)); }
    std::string number(int low, int high) { return std::to_string(low + int(upTo(unsigned(high - low)))); }
    std::string oneOf(const std::vector<std::string>& words) { return words[upTo(unsigned(words.size() - 1))]; }
    std::string keyable() { return node() + "." + oneOf({"tx", "ty", "ry", "v"}); }
    std::string curve() { return name() + oneOf({"_translateX", "_translateY", "_visibility"}); }
    std::string name() { return oneOf({"ball", "arm", "leg", "leg2", "shot"}); }

    std::string node()
    {
        std::vector<std::string> paths{"persp"};
        m_scene.walkDag([&](kernel::Node& node) {
            if (!node.startup)
                paths.push_back(m_scene.fullPath(node));
            return true;
        });
        return oneOf(paths);
    }

    const kernel::Scene& m_scene;
    std::mt19937 m_random;
};

/// Both forms of the scene file, and what belongs to a scene without being saved.
std::string stateOf(ScriptHost& host)
{
    std::ostringstream state;
    kernel::writeSceneText(host.session, state, "long");
    kernel::writeSceneBinary(host.session, state, "long");
    host.session.scene.walkDag([&](const kernel::Node& node) {
        for (const char* name : {"translateX", "translateY", "rotateY", "visibility"})
            state << kernel::exactNumberText(node.number(name)) << ' ';
        return true;
    });
    for (const kernel::NodePtr& node : host.session.scene.selection())
        state << host.session.scene.fullPath(*node) << '\n';
    state << kernel::exactNumberText(host.session.scene.currentTime().value);
    return state.str();
}

}  // namespace

TEST(LongSession, GoesBackToTheStartAndForthToTheEndByteForByte)
{
    for (const unsigned seed : {1u, 2u, 3u}) {
        ScriptHost host;
        host.run("undoInfo -infinity on");
        Animator animator(host.session.scene, seed);
        std::vector<std::string> states{stateOf(host)};
        std::string script;
        unsigned refused = 0;
        for (int i = 0; i < kCommands; ++i) {
            const std::string command = animator.nextCommand();
            script += command + ";\n";
            refused += host.run(command) ? 0 : 1;
            const std::string state = stateOf(host);
            if (host.session.undo.count() == states.size())
                states.push_back(state);
            ASSERT_EQ(host.session.undo.count() + 1, states.size()) << "at most one step for each:\n" << script;
            ASSERT_EQ(state, states.back()) << "what is no step changes nothing:\n" << script;
        }
        EXPECT_GT(states.size(), kCommands / 2u);
        EXPECT_GT(refused, 0u);
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            ASSERT_TRUE(host.run("undo"));
            ASSERT_EQ(stateOf(host), states[i]) << "undone to step " << i << " of\n" << script;
        }
        for (std::size_t i = 1; i < states.size(); ++i) {
            ASSERT_TRUE(host.run("redo"));
            ASSERT_EQ(stateOf(host), states[i]) << "redone to step " << i << " of\n" << script;
        }
    }
}
