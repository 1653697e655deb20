#include "commands/GhostActions.h"

#include "commands/GhostRefresh.h"
#include "commands/ToolActions.h"
#include "settings/Panels.h"
#include "settings/ScriptBridge.h"

namespace {

constexpr int kMaxGhostCount = 9;

MStatus announce()
{
    rebuildGhosts();
    script::notifyMainMenu();
    Panels::refreshInstalled(Panel::Toolbox);
    return MStatus::kSuccess;
}

}  // namespace

MStatus showGhosts(const GhostSide& side, int show)
{
    Preferences& preferences = Preferences::instance();
    (preferences.*side.setShown)(show < 0 ? !(preferences.*side.isShown)() : show > 0);
    return announce();
}

MStatus setGhostCount(const GhostSide& side, int count)
{
    (Preferences::instance().*side.setCount)(qBound(1, count, kMaxGhostCount));
    return announce();
}

MStatus setGhostColour(const GhostSide& side, const MArgDatabase& args, const char* flag)
{
    QColor colour;
    if (!readColourArgument(args, flag, colour)) {
        return MStatus::kFailure;
    }
    (Preferences::instance().*side.setColour)(colour);
    return announce();
}

MStatus setGhostColourOverride(bool on)
{
    Preferences::instance().setGhostColorOverride(on);
    return announce();
}
