// The module as a whole: what import defines, in order, and the start of the media libraries.
#include "collision/movementsystem.hpp"
#include "colorprint.hpp"
#include "events/joystick.hpp"
#include "geometryMath.hpp"
#include "gui/uirenderer.hpp"
#include "keys.hpp"
#include "raycaster/frame.hpp"
#include "renderer.hpp"
#include "resources/components.hpp"
#include "resources/entity/basiccomponents.hpp"
#include "resources/entity/ecs.hpp"
#include "resources/entity/spritecomponent.hpp"
#include "resources/level.hpp"
#include "resources/sound.hpp"
#include "ui/anchoredcontainer.hpp"
#include "ui/button.hpp"
#include "ui/image.hpp"
#include "ui/panel.hpp"
#include "ui/scrollpanel.hpp"
#include "zelvarine/constants.hpp"
#include "zelvarine/engine.hpp"
#include "zelvarine/exceptions.hpp"
#include "zelvarine/medialibraries.hpp"

namespace zv {

static PyModuleDef definition = {PyModuleDef_HEAD_INIT, "zelvarine",
    "\nZelvarine is a game engine with a raycasting renderer and some simple UI\ncapabilities.\n", -1, nullptr, nullptr,
    nullptr, nullptr, nullptr};

// The code reaches these modules through the names that they have here.
static constexpr const char* standardModules = R"python(
from threading import Timer
import time
import math
import json as _json
import os.path
import os.path as _ospath
import sys as _sys
)python";

}  // namespace zv

ZELVARINE_MODULE_INIT PyInit_zelvarine() {
    using namespace zv;
    return guarded<PyObject*>(nullptr, [] {
        Ref<> object = Ref<>::steal(PyModule_Create(&definition));
        Module module(object.raw());
        module.source(standardModules);
        module.value("__version__", toPython(ZELVARINE_VERSION));
        declareConstants(module);
        declareKeys(module);

        // Signatures mention these before they are declared.
        typeOf<Engine>.tp_name = "zelvarine.Engine";
        typeOf<Ecs>.tp_name = "zelvarine.Ecs";
        typeOf<AbstractUIContainer>.tp_name = "zelvarine.AbstractUIContainer";

        declareVector2(module);
        declareTerminalColors(module);
        declareEvents(module);
        declareJoystick(module);
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
        declareUIRenderer(module);
        declareUIWidget(module);
        declareAbstractUIContainer(module);
        declareUIListContainer(module);
        declareUIAnchoredContainer(module);
        declareUIText(module);
        declareUIImage(module);
        declareUIButton(module);
        declareUIPanel(module);
        declareUISlider(module);
        declareUIScrollPanel(module);
        declareEngine(module);

        hookMusicFinished();  // before there is a device that could play
        declareExceptions(module);
        startMediaLibraries();
        setEngineAttributes();
        return object.release();
    });
}
