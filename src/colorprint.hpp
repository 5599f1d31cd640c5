// Colors for what a script prints on a terminal.
#pragma once
#include "binding/module.hpp"

namespace zv {

void declareTerminalColors(Module&);

}  // namespace zv
