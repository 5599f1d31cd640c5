// Key and mouse button constants: SDL's own values, so they pass unchanged between events and SDL calls.
#pragma once
#include "binding/module.hpp"

namespace zv {

void declareKeys(Module&);

}  // namespace zv
