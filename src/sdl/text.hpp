// Text on its way to SDL.
#pragma once
#include "binding/callable.hpp"

namespace zv {

// text.encode("utf-8"), for as long as this object lives. A null character inside raises ValueError:
// SDL would take it for the end.
class Utf8 {
public:
    explicit Utf8(PyObject* text) {
        bytes = callByName(text, "encode"_name, std::string_view("utf-8"));
        checked(PyBytes_AsStringAndSize(bytes.raw(), &start, nullptr));
    }
    operator const char*() const { return start; }

private:
    Ref<> bytes;
    char* start = nullptr;
};

}  // namespace zv
