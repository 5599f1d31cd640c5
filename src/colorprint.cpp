#include "colorprint.hpp"

namespace zv {

// A plain Python class. Names with two underscores are private to it, so the module's own is reached
// through globals().
static constexpr const char* source = R"(
__PRINT_COLOR_RESET = "\x1b[0m"


class TerminalColor:
    """Colors what is printed inside a `with` block.

    The end of the block resets all colors, so blocks do not nest.
    @param(color, str) the escape sequence that switches to the color
    """

    def __init__(self, color):
        self.__color = color

    def __enter__(self):
        _sys.stdout.write(self.__color)
        _sys.stdout.flush()
        return self

    def __exit__(self, type, value, traceback):
        _sys.stdout.write(globals()["__PRINT_COLOR_RESET"])
        _sys.stdout.flush()
)";

static void clearTerminal() { print("\x1b[2J"); }

void declareTerminalColors(Module& module) {
    module.source(source);
    const char* const palette[] = {"RED", "GREEN", "YELLOW", "BLUE", "MAGENTA", "CYAN", "WHITE"};  // from 31 on
    for (int i = 0; i < 7; i++) {
        auto add = [&](const std::string& name, int code) {
            std::string sequence = "\x1b[" + std::to_string(code) + "m";
            module.value(name.c_str(), callByName(module.raw(), "TerminalColor"_name, sequence));
        };
        add(std::string("TERMINAL_") + palette[i], 31 + i);
        add(std::string("TERMINAL_") + palette[i] + "_BG", 41 + i);
    }
    module.function<clearTerminal>("clearTerminal", {}, "Clears the terminal.");
}

}  // namespace zv
