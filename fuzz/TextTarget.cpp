// A whole text scene with drawings: the host's statements down to the drawing's text record.

#include "FuzzHost.h"
#include "FuzzTarget.h"

#include "model/LayerManager.h"
#include "node/BaseNode.h"

#include "kernel/SceneFile.h"
#include "kernel/SceneIntake.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace {

constexpr char kSceneName[] = "fuzz.ma";

void read(const std::string& scene)
{
    kernel::newScene(fuzz::session());
    kernel::SceneIntake intake(fuzz::session(), kernel::SceneIntake::Purpose::Open, kSceneName);
    fuzz::session().script().executeScene(scene, intake);
}

std::string writtenScene()
{
    std::ostringstream out;
    kernel::writeSceneText(fuzz::session(), out, kSceneName);
    return out.str();
}

std::vector<QByteArray> drawings()
{
    std::vector<QByteArray> records;
    for (const BaseNode* node : BaseNode::allNodes()) {
        const std::shared_ptr<LayerManager> drawing = node->layerManager();
        records.push_back(drawing ? fuzz::binaryRecord(*drawing) : QByteArray());
    }
    std::sort(records.begin(), records.end());  // nodes are written parents first, whenever they were made
    return records;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    read(std::string(bytes, bytes + size));
    const std::vector<QByteArray> before = drawings();
    const std::string written = writtenScene();
    if (fuzz::isDrawnOn(bytes, size)) {
        for (const BaseNode* node : BaseNode::allNodes()) {
            if (const std::shared_ptr<LayerManager> drawing = node->layerManager()) {
                fuzz::drawOn(*drawing);
            }
        }
        writtenScene();
    }
    if (before.empty()) {
        return 0;
    }
    read(written);
    fuzz::require(drawings() == before, "drawings are the same in the scene that is written");
    return 0;
}

std::vector<QByteArray> seeds()
{
    std::vector<QByteArray> scenes;
    for (int i = 0; i < fuzz::kSampleCount; ++i) {
        read("createNode tqLumisketch;\n");
        fuzz::makeSample(i, *BaseNode::allNodes().front()->layerManager());
        const std::string scene = writtenScene();
        // Once whole; what every scene has need not be there every time.
        const std::size_t begin = i == 0 ? 0 : scene.find("createNode transform -n \"tqLumisketch");
        scenes.push_back(QByteArray::fromStdString(scene.substr(begin)));
    }
    return scenes;
}
