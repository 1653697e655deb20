#include "commands/Panels.h"

namespace {

Panels* s_installed = nullptr;

}  // namespace

Panels* Panels::installed()
{
    return s_installed;
}

void Panels::install(Panels* panels)
{
    s_installed = panels;
}
