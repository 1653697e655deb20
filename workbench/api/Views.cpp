#include "api/Views.h"

namespace api {

namespace {

ViewHost*& installed()
{
    static ViewHost* host = nullptr;
    return host;
}

}  // namespace

ViewHost* viewHost()
{
    return installed();
}

void installViewHost(ViewHost* host)
{
    installed() = host;
}

}  // namespace api
