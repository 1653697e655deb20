#include "commands/SelectionNudge.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

void nudgeSelection(const MObject& node)
{
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    if (selection.isEmpty()) {
        MSelectionList other;
        other.add(node);
        MGlobal::setActiveSelectionList(other);
    } else {
        MGlobal::clearSelectionList();
    }
    MGlobal::setActiveSelectionList(selection);
}
