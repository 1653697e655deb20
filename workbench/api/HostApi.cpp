#include "api/HostApi.h"

#include "api/DrawList.h"
#include "api/Messages.h"
#include "api/Module.h"
#include "api/ToolCommands.h"
#include "api/Tools.h"

namespace api {

void installHostApi(kernel::Session& session)
{
    addModuleCommands(session);
    installToolCommands(session);
}

void shutDownHostApi(kernel::Session& session)
{
    ToolBox& tools = ToolBox::instance();
    tools.setListener(nullptr);
    // Tools and overrides of a module go while its code is still there.
    tools.clear();
    dropDrawOverrides(true);
    unloadAllModules(session);
    forgetCallbacks();
}

}  // namespace api
