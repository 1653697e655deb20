#include "api/UserInterface.h"

namespace api {

namespace {

UserInterface*& installed()
{
    static UserInterface* userInterface = nullptr;
    return userInterface;
}

}  // namespace

UserInterface* userInterface()
{
    return installed();
}

void installUserInterface(UserInterface* userInterface)
{
    installed() = userInterface;
}

}  // namespace api
