// The drawing's binary record, as it stands in a binary scene.

#include "FuzzHost.h"
#include "FuzzTarget.h"

#include "model/BaseNodeLayerData.h"

#include <sstream>
#include <string>

namespace {

std::shared_ptr<LayerManager> read(const std::string& bytes)
{
    std::istringstream in(bytes);
    BaseNodeLayerData data;
    data.readBinary(in, static_cast<unsigned>(bytes.size()));
    return data.layerManager();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::session();
    const std::shared_ptr<LayerManager> drawing = read(std::string(bytes, bytes + size));
    const QByteArray written = fuzz::binaryRecord(*drawing);
    // In a record an empty name stands for no current camera, although one may be called that.
    const bool isTold = !drawing->currentCamera().isEmpty() || drawing->cameras().isEmpty();
    fuzz::require(!isTold || fuzz::binaryRecord(*read(written.toStdString())) == written,
                  "what was written reads the same");
    fuzz::textRecord(*drawing);
    if (fuzz::isDrawnOn(bytes, size)) {
        fuzz::drawOn(*drawing);
        fuzz::binaryRecord(*drawing);
    }
    return 0;
}

std::vector<QByteArray> seeds()
{
    fuzz::session();
    std::vector<QByteArray> records;
    for (int i = 0; i < fuzz::kSampleCount; ++i) {
        LayerManager drawing;
        fuzz::makeSample(i, drawing);
        records.push_back(fuzz::binaryRecord(drawing));
    }
    return records;
}
