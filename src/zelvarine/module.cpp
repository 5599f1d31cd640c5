// The module as a whole: what import defines, in order, and the start of the media libraries.
#include "collision/movementsystem.hpp"
#include "events.hpp"
#include "geometryMath.hpp"
#include "gui/uitheme.hpp"
#include "raycaster/frame.hpp"
#include "renderer.hpp"
#include "resources/components.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/entity/ecs.hpp"
#include "resources/entity/spritecomponent.hpp"
#include "resources/level.hpp"
#include "resources/sound.hpp"

namespace zv {

static PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "zelvarine",
    "\nZelvarine is a game engine with a raycasting renderer and some simple UI\ncapabilities.\n",
    -1, nullptr, nullptr, nullptr, nullptr, nullptr};

}  // namespace zv

// PyMODINIT_FUNC exports the symbol only from Python 3.9 on; the build hides symbols by default.
extern "C" __attribute__((visibility("default"))) PyObject* PyInit_zelvarine() {
    using namespace zv;
    return guarded<PyObject*>(nullptr, [] {
        Ref<> object = Ref<>::steal(PyModule_Create(&definition));
        Module module(object.raw());
        declareVector2(module);
        declareEvents(module);
        declareResource(module);
        declareTexture(module);
        declareFont(module);
        declareSound(module);
        declareEntity(module);
        declareAbstractSystem(module);
        declareEcs(module);
        declareBasicComponents(module);
        declareSprite(module);
        declareSpriteComponent(module);
        declareComponents(module);
        declareLevel(module);
        declareRenderer(module);
        declareCamera(module);
        declareRaycastingRenderer(module);
        declareCollisionBodySystem(module);
        declareMovementSystem(module);
        declareUITheme(module);
        return object.release();
    });
}
