#include "renderer.hpp"

namespace zv {

void Renderer::init(Ref<Texture> newTarget, Args componentTypes) {
    AbstractSystem::init(componentTypes);
    target = std::move(newTarget);
}

void Renderer::update(double timeStep) {
    AbstractSystem::update(timeStep);
    call<&Renderer::render>(*this);
}

void declareRenderer(Module& module) {
    Class<Renderer, AbstractSystem>("zelvarine.Renderer",
        "The abstract base class of all renderers.\n\n"
        "A renderer draws into its target, a Texture of the size given to Engine.init; several renderers\n"
        "may share one. Further arguments are the component types that the renderer is interested in.")
        .init<&Renderer::init>({{"target"}})
        .method<&Renderer::getTarget>("getTarget", {}, "The texture that this renderer draws into.")
        .method<&Renderer::render>(
            "render", {}, "Draws one frame. Does nothing here; it should be overwritten by deriving classes.")
        .method<&Renderer::update>(
            "update", {{"timeStep"}}, "Calls `_updateEntity` for each member, then `render`. `timeStep` is in seconds.")
        .addTo(module.raw());
}

}  // namespace zv
