// SDL and its companion libraries, which run from the import of the module on.
#pragma once

namespace zv {

// Starts all of them, in order; EngineSdlException at the first that does not start. What was started
// before stays so, and a later call goes over it again without harm.
void startMediaLibraries();

}  // namespace zv
