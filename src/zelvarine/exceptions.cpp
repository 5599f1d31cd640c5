#include "zelvarine/exceptions.hpp"

#include <SDL.h>

namespace zv {

static Ref<> sdlError() { return Ref<>::steal(PyBytes_FromString(SDL_GetError())); }

void declareExceptions(Module& module) {
    module.function<&sdlError>("_sdlError", {}, "What SDL says of its last failure in this thread.\n@return(bytes)");
    module.source(R"python(
class EngineException(Exception):
    """The base class for all exceptions of the engine.

    @param(msg, str)
    """

    def __init__(self, msg):
        self.msg = msg

    def __str__(self):
        return 'EngineException("%s")' % (self.msg,)


class EngineSdlException(EngineException):
    """A failure of SDL or one of its companion libraries.

    `error` is what SDL said of its last failure when the exception was made, as bytes.
    @param(msg, str)
    """

    def __init__(self, msg):
        EngineException.__init__(self, msg)
        self.error = _sdlError()

    def __str__(self):
        return 'EngineException<SDL Error>("%s", "%s")' % (self.msg, self.error)


class LevelFormatException(EngineException):
    """A level cannot be loaded, because of invalid file content or an invalid level format.

    @param(filename, str)
    @param(msg, str)
    """

    def __init__(self, filename, msg):
        EngineException.__init__(self, msg)
        self.filename = filename

    def __str__(self):
        return "EngineException(Error while loading file '%s': \"%s\")" % (self.filename, self.msg)
)python");
}

}  // namespace zv
