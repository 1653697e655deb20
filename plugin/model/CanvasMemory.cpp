#include "model/CanvasMemory.h"

#include "model/Canvas.h"

#include <array>
#include <memory>
#include <mutex>
#include <vector>

namespace {

constexpr int kBytesPerRow = kCanvasSize * 4;
constexpr std::size_t kMostKept = 4;

using Memory = std::array<uchar, static_cast<std::size_t>(kBytesPerRow) * kCanvasSize>;

struct Kept {
    std::mutex mutex;
    std::vector<std::unique_ptr<Memory>> memories;
};

// Whoever has a canvas holds them as well: it may go later than what is static.
struct Loan {
    std::unique_ptr<Memory> memory;
    std::shared_ptr<Kept> kept;
};

std::unique_ptr<Memory> takeFrom(Kept& kept)
{
    const std::lock_guard<std::mutex> lock(kept.mutex);
    if (kept.memories.empty()) {
        return nullptr;
    }
    std::unique_ptr<Memory> memory = std::move(kept.memories.back());
    kept.memories.pop_back();
    return memory;
}

void giveBack(void* object)
{
    const std::unique_ptr<Loan> loan(static_cast<Loan*>(object));
    const std::lock_guard<std::mutex> lock(loan->kept->mutex);
    if (loan->kept->memories.size() < kMostKept) {
        loan->kept->memories.push_back(std::move(loan->memory));
    }
}

}  // namespace

QImage canvasMemory::take(QImage::Format format)
{
    static const std::shared_ptr<Kept> kept = std::make_shared<Kept>();
    std::unique_ptr<Loan> loan(new Loan{takeFrom(*kept), kept});
    if (!loan->memory) {
        loan->memory.reset(new Memory);
    }
    uchar* const pixels = loan->memory->data();
    return QImage(pixels, kCanvasSize, kCanvasSize, kBytesPerRow, format, giveBack, loan.release());
}
