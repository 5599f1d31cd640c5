// The constant families of the module, apart from keys and terminal colors.
#pragma once
#include "binding/module.hpp"

namespace zv {

void declareConstants(Module&);

}  // namespace zv
