#include "mel/Stack.h"

#include <cstddef>
#include <cstdint>
#include <pthread.h>

namespace mel {

namespace {

constexpr std::size_t kReserve = 1 << 20;  ///< left for commands, which know nothing of the check
constexpr std::size_t kSmallStack = 256 << 10;

std::uintptr_t lowestSafeAddress()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return 0;
    void* lowest = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    const std::size_t reserve = size > 2 * kReserve ? kReserve : size > 2 * kSmallStack ? kSmallStack : size / 2;
    return reinterpret_cast<std::uintptr_t>(lowest) + reserve;
}

}  // namespace

bool isStackShort()
{
    thread_local const std::uintptr_t lowest = lowestSafeAddress();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < lowest;
}

}  // namespace mel
