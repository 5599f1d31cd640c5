#include "resources/components.hpp"

namespace zv {

// Doc strings with line breaks are assigned: the compiler of newer Pythons would strip their indentation.
static const char* const source = R"python(
_COMPONENTS = dict(sprite=SpriteComponent, position=PositionComponent, rotation=RotationComponent,
                   collision=CollisionComponent, velocity=VelocityComponent)
_COMPONENTS.update([(cls, name) for name, cls in _COMPONENTS.items()])


class DummyComponent:
    __doc__ = ("This component type is used for component types\n"
               "    in a level that can't be mapped.\n    ")


def component(name):
    def innerComponent(cls):
        if type(name) is not str:
            raise TypeError("component name must be a string")
        if type(cls) is not type:
            raise TypeError("component type must be a class")
        _COMPONENTS[name] = cls
        _COMPONENTS[cls] = name
        return cls
    return innerComponent


component.__doc__ = ("Registers a class as a component type; a class decorator.\n\n"
                     "The name is the key string used inside the JSON level files. The class is created without\n"
                     "arguments; it may offer loadFromDict(level, input) and dumpToDict(level), else its instance\n"
                     "dictionary is loaded and saved. TypeError if the name is no str or the class no plain class.\n"
                     "@param(name, str)\n@return(function)")
)python";

void declareComponents(Module& module) { module.source(source); }

}  // namespace zv
