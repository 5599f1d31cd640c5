// The names that level files use for component classes.
#pragma once
#include "binding/module.hpp"

namespace zv {

// Needs the component classes in the module already.
void declareComponents(Module&);

}  // namespace zv
