#pragma once

#include "session/sheet/Page.h"

/// The sections of the contact sheet, from top to bottom.
namespace sheet {

void addFreehand(Page& page);
void addEdges(Page& page);
void addShapes(Page& page);
void addText(Page& page);
void addTransforms(Page& page);
void addGhosts(Page& page);

}  // namespace sheet
