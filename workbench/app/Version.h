#pragma once

namespace app {

constexpr char kVersion[] = "2.5.4";

}  // namespace app
