// The base of everything that can come from a file.
#pragma once
#include "binding/class.hpp"
#include "binding/module.hpp"

namespace zv {

struct Resource : Object {
    Ref<> filename;

    void eachRef(RefVisitor& visit) override { visit(filename); }
    void init(Ref<> name) { filename = std::move(name); }
};

void declareResource(Module&);

}  // namespace zv
