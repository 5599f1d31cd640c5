#include "resources.hpp"

namespace zv {

void declareResource(Module& module) {
    Class<Resource>("zelvarine.Resource", "The abstract base class for all kinds of resoruces.")
        .init<&Resource::init>({{"filename"}})
        .property<&Resource::filename>("_filename", "the name of the file; None before the constructor ran")
        .readonly<&Resource::filename>("filename", "the name of the file")
        .addTo(module.raw());
}

}  // namespace zv
