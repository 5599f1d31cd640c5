// The base of all renderers: a system that draws into a target texture.
#pragma once
#include "resources/entity/abstractsystem.hpp"
#include "resources/texture.hpp"

namespace zv {

struct Renderer : AbstractSystem {
    Ref<Texture> target;

    void eachRef(RefVisitor& visit) override {
        AbstractSystem::eachRef(visit);
        visit(target);
    }

    void init(Ref<Texture> newTarget, Args componentTypes);
    Ref<Texture> getTarget() const { return target; }
    void render() {}
    void update(double timeStep);
};

void declareRenderer(Module&);

}  // namespace zv
