// The engine's exceptions: plain Python classes, for scripts to catch and subclass.
#pragma once
#include "binding/module.hpp"

namespace zv {

void declareExceptions(Module&);

}  // namespace zv
