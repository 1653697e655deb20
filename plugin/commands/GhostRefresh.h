#pragma once

/// Has the ghosts of the current camera made anew at the next drawing. False in a scene without a drawing.
bool rebuildGhosts();
