# The front door to the project; `make help` lists what it offers.

# The interpreter to build for and to test with, and the folder that the build goes to.
PYTHON = $(firstword $(wildcard /usr/bin/python3) python3)
BUILD = build
# Arguments handed to `make demo`, `make test` and `make bench`.
ARGS =
# Installs missing Debian packages; `PACKAGES=:` skips that.
PACKAGES = scripts/install-packages

CMAKE_OPTIONS = -DZELVARINE_WERROR=ON
JOBS = $(shell nproc 2>/dev/null || echo 2)
RUN = PYTHONPATH="$(abspath $(BUILD))" $(PYTHON)
HEADLESS = SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy
# The interpreter itself is built without sanitizers: their runtime, and what they intercept, come in front of it.
SANITIZED = PYTHONMALLOC=malloc LD_PRELOAD="$(foreach library,libasan libstdc++,$(shell g++ -print-file-name=$(library).so))" \
	UBSAN_OPTIONS=print_stacktrace=1 ASAN_OPTIONS=leak_check_at_exit=0:allocator_may_return_null=1
# Short, but enough to tell who asked for the memory.
EXACT_STACKS = fast_unwind_on_malloc=0:malloc_context_size=10
LEAK_TESTS = $(addprefix tests/test_,components.py level.py level_files.py events.py vector.py font.py theme.py stubs.py raycaster_queries.py)

SOURCES := $(shell find src -name '*.cpp')
HEADERS := $(shell find src -name '*.hpp')
PYTHON_FOLDERS := $(wildcard bench examples scripts tests)

# The folder that holds the interpreter's own installation, and the one that holds its packages. Debian's
# interpreter, and it alone, works with headers and packages from Debian; where there is none yet, Debian's is coming.
PREFIXES := $(shell $(PYTHON) -c 'import sys; print(sys.base_prefix, sys.prefix)' 2>/dev/null || echo /usr /usr)
HAS_DEBIAN_HEADERS := $(filter /usr,$(firstword $(PREFIXES)))
HAS_DEBIAN_MODULES := $(filter /usr,$(lastword $(PREFIXES)))

.DEFAULT_GOAL = build
.PHONY: help build demo test bench lint format asan stubs all build-packages demo-packages test-packages lint-packages

help: ## list the targets
	@sed -n 's/^\([a-z]*\):.*## /\1|/p' Makefile | awk -F'|' '{ printf "  make %-8s %s\n", $$1, $$2 }'
	@echo
	@echo "  PYTHON=$(PYTHON)   the interpreter to build for; give another one a BUILD folder of its own"
	@echo "  BUILD=$(BUILD)   where the importable module goes"
	@echo "  ARGS='...'   arguments for demo, test (pytest) and bench"
	@echo "  PACKAGES=:   do not install missing Debian packages"

build: build-packages ## build the module into BUILD (the default target)
	@mkdir -p "$(BUILD)"
	@# What CMake remembers belongs to one interpreter.
	@$(PYTHON) -c 'import sys; print(sys.executable, sys.version)' >"$(BUILD)/interpreter.new"
	@cmp -s "$(BUILD)/interpreter.new" "$(BUILD)/interpreter" || rm -rf "$(BUILD)"/CMakeCache.txt "$(BUILD)"/CMakeFiles "$(BUILD)"/zelvarine.*
	@mv "$(BUILD)/interpreter.new" "$(BUILD)/interpreter"
	@cmake -S . -B "$(BUILD)" --log-level=NOTICE -DPython_EXECUTABLE="$$($(PYTHON) -c 'import sys; print(sys.executable)')" $(CMAKE_OPTIONS)
	@env -u MAKEFLAGS -u MAKELEVEL cmake --build "$(BUILD)" --parallel $(JOBS)

demo: build demo-packages ## walk through the demo level; without a display it saves pictures (ARGS=--help tells the options)
	$(RUN) examples/walk.py $(ARGS)

test: build test-packages ## run the tests, without a window or sound
	$(HEADLESS) $(RUN) -m pytest -q tests $(ARGS)

bench: build test-packages ## time frames and movement
	$(HEADLESS) $(RUN) bench/bench.py $(ARGS)

lint: build lint-packages stubs ## check layers, C++ and Python sources, and stubs
	scripts/check_layers.py
	$(PYTHON) -m compileall -q $(PYTHON_FOLDERS)
	@$(MAKE) --no-print-directory --jobs=$(JOBS) $(SOURCES:src/%.cpp=$(BUILD)/tidy/%)

# One empty file for each source that clang-tidy has found nothing in.
$(BUILD)/tidy/%: src/%.cpp $(HEADERS) .clang-tidy
	clang-tidy --quiet -p "$(BUILD)" $<
	@mkdir -p $(@D) && touch $@

format: lint-packages ## lay out the lines of C++ that are changed and not committed yet
	git clang-format --extensions cpp,hpp

# All tests for faults, then a few that make an object of everything for leaks: exact stacks cost much time.
asan: test-packages ## run the tests under the address and undefined-behaviour sanitizers, then look for leaks
	@$(MAKE) --no-print-directory build BUILD=build-asan CMAKE_OPTIONS="$(CMAKE_OPTIONS) -DZELVARINE_SANITIZE=ON"
	PYTHONPATH=build-asan $(HEADLESS) $(SANITIZED) $(PYTHON) -m pytest -q --capture=sys tests $(ARGS)
	PYTHONPATH=build-asan $(HEADLESS) $(SANITIZED):$(EXACT_STACKS) $(PYTHON) scripts/check_leaks.py -q --capture=sys $(LEAK_TESTS)

stubs: build test-packages ## check that the type stubs and the module agree
	$(HEADLESS) $(RUN) -m pytest -q tests/test_stubs.py

all: build lint test asan ## everything above that can fail

build-packages:
	@$(PACKAGES) g++ cmake libsdl2-dev libsdl2-image-dev libsdl2-mixer-dev libsdl2-ttf-dev $(if $(HAS_DEBIAN_HEADERS),python3-dev)

demo-packages:
	@$(PACKAGES) fonts-dejavu-core

test-packages:
	@$(PACKAGES) fonts-dejavu-core xvfb xdotool $(if $(HAS_DEBIAN_MODULES),python3-pytest python3-numpy)
	@$(PYTHON) -c 'import pytest, numpy' || { echo "The tests need two packages: $(PYTHON) -m pip install pytest numpy" >&2; exit 1; }

lint-packages:
	@$(PACKAGES) clang-format clang-tidy
