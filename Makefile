# The front door to the project; `make help` lists what it offers.

# The interpreter to build for and to test with, and the folder that the build goes to.
PYTHON = $(firstword $(wildcard /usr/bin/python3) python3)
BUILD = build
# Arguments handed to `make demo`, `make test`, `make bench` and `make fuzz`.
ARGS =
# Looks for Debian packages, and installs what is missing; `PACKAGES=:` skips that.
PACKAGES = scripts/packages

CMAKE_OPTIONS = -DZELVARINE_WERROR=ON
JOBS = $(shell nproc 2>/dev/null || echo 2)
RUN = PYTHONPATH="$(abspath $(BUILD))" $(PYTHON)
HEADLESS = SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy
# The interpreter itself is built without sanitizers: their runtime, and what they intercept, come in front of it.
SANITIZED = PYTHONMALLOC=malloc LD_PRELOAD="$(foreach library,libasan libstdc++,$(shell g++ -print-file-name=$(library).so))" \
	UBSAN_OPTIONS=print_stacktrace=1 ASAN_OPTIONS=leak_check_at_exit=0:allocator_may_return_null=1
SANITIZED_BUILD = BUILD=build-asan CMAKE_OPTIONS="$(CMAKE_OPTIONS) -DZELVARINE_SANITIZE=ON"
# Short, but enough to tell who asked for the memory.
EXACT_STACKS = fast_unwind_on_malloc=0:malloc_context_size=10
LEAK_TESTS = $(addprefix tests/test_,components.py level.py level_files.py events.py vector.py font.py theme.py class_layer.py raycaster_queries.py)

SOURCES := $(shell find src -name '*.cpp')
HEADERS := $(shell find src -name '*.hpp')
LAID_OUT = $(SOURCES) $(HEADERS) bench/yardstick.cpp
CLANG_FORMAT = clang-format-19
PYTHON_FOLDERS := $(wildcard bench docs examples scripts tests tools)

# The folder that holds the interpreter's own installation, and the one that holds its packages. Debian's
# interpreter, and it alone, works with headers and packages from Debian; where there is none yet, Debian's is coming.
PREFIXES := $(shell $(PYTHON) -c 'import sys; print(sys.base_prefix, sys.prefix)' 2>/dev/null || echo /usr /usr)
HAS_DEBIAN_HEADERS := $(filter /usr,$(firstword $(PREFIXES)))
HAS_DEBIAN_MODULES := $(filter /usr,$(lastword $(PREFIXES)))

BUILD_PACKAGES = g++ cmake libsdl2-dev libsdl2-image-dev libsdl2-mixer-dev libsdl2-ttf-dev libhwy-dev \
	$(if $(HAS_DEBIAN_HEADERS),python3-dev)
DEMO_PACKAGES = fonts-dejavu-core
TEST_PACKAGES = xvfb xdotool $(if $(HAS_DEBIAN_MODULES),python3-pytest python3-numpy)
DOCS_PACKAGES = $(if $(HAS_DEBIAN_MODULES),python3-sphinx python3-myst-parser furo python3-numpy)
STUBS_PACKAGES = $(if $(HAS_DEBIAN_MODULES),python3-mypy)
VENV_PACKAGES = $(if $(HAS_DEBIAN_MODULES),python3-venv)
LINT_PACKAGES = $(CLANG_FORMAT) clang-tidy
# A make of its own for what comes after an installation, which may have brought the interpreter.
AGAIN = @$(MAKE) --no-print-directory

.DEFAULT_GOAL = build
.PHONY: help setup build demo test test-setup bench docs lint format asan fuzz asan-fuzz stubs stub-docs wheel wheels freeze sdist all

help: ## list the targets
	@sed -n 's/^\([a-z-]*\):.*## /\1|/p' Makefile | awk -F'|' '{ printf "  make %-9s %s\n", $$1, $$2 }'
	@echo
	@echo "  PYTHON=$(PYTHON)   the interpreter to build for; give another one a BUILD folder of its own"
	@echo "  BUILD=$(BUILD)   where the importable module goes"
	@echo "  ARGS='...'   arguments for demo, test (pytest), bench and fuzz"
	@echo "  PACKAGES=:   neither look for Debian packages nor install any"

setup: ## install the Debian packages that building and the demo need
	@$(PACKAGES) install $(BUILD_PACKAGES) $(DEMO_PACKAGES)

test-setup: setup
	@$(PACKAGES) install $(TEST_PACKAGES)
	@$(PYTHON) -c 'import pytest, numpy' || { echo "The tests need two packages: $(PYTHON) -m pip install pytest numpy" >&2; exit 1; }

build: ## build the module into BUILD (the default target); installs nothing
	@$(PACKAGES) check $(BUILD_PACKAGES)
	@mkdir -p "$(BUILD)"
	@# What CMake remembers belongs to one interpreter.
	@$(PYTHON) -c 'import sys; print(sys.executable, sys.version)' >"$(BUILD)/interpreter.new"
	@cmp -s "$(BUILD)/interpreter.new" "$(BUILD)/interpreter" || rm -rf "$(BUILD)"/CMakeCache.txt "$(BUILD)"/CMakeFiles "$(BUILD)"/zelvarine.*
	@mv "$(BUILD)/interpreter.new" "$(BUILD)/interpreter"
	@cmake -S . -B "$(BUILD)" --log-level=NOTICE -DPython_EXECUTABLE="$$($(PYTHON) -c 'import sys; print(sys.executable)')" $(CMAKE_OPTIONS)
	@env -u MAKEFLAGS -u MAKELEVEL cmake --build "$(BUILD)" --parallel $(JOBS)
	@$(PYTHON) -c 'import sys; print("For Python %d.%d; this runs a script with it:" % sys.version_info[:2])'
	@echo "PYTHONPATH=$(abspath $(BUILD)) $$($(PYTHON) -c 'import sys; print(sys.executable)') game.py"

demo: setup ## walk through the demo level; without a display it saves pictures (ARGS=--help tells the options)
	$(AGAIN) build
	$(RUN) examples/walk.py $(ARGS)

test: test-setup ## run the tests, without a window or sound
	$(AGAIN) build
	$(HEADLESS) $(RUN) -m pytest -q tests $(ARGS)

bench: test-setup ## time frames, movement, entities and widgets (ARGS="--against FOLDER" compares with another build)
	$(AGAIN) build
	@env -u MAKEFLAGS -u MAKELEVEL cmake --build "$(BUILD)" --target yardstick
	$(HEADLESS) $(RUN) bench/bench.py $(ARGS)

docs: setup ## build the pages and the reference into a site, BUILD/site, with pictures that the engine draws
	@$(PACKAGES) install $(DOCS_PACKAGES)
	@$(PYTHON) -c 'import sphinx, myst_parser, furo, numpy' || { echo "The site needs: $(PYTHON) -m pip install sphinx myst-parser furo numpy" >&2; exit 1; }
	$(AGAIN) build
	@$(RUN) scripts/draw_pictures.py >/dev/null
	$(RUN) -m sphinx -q -W --keep-going docs "$(BUILD)/site"
	@echo "$(BUILD)/site/index.html"

lint: ## check layers, layout, C++ and Python sources, and stubs
	@$(PACKAGES) install $(BUILD_PACKAGES) $(LINT_PACKAGES)
	$(AGAIN) build stubs
	scripts/check_layers.py
	@$(CLANG_FORMAT) --dry-run --Werror $(LAID_OUT) || { echo "make format lays these lines out" >&2; exit 1; }
	@# What clang-format cannot break is for people to shorten.
	@! LC_ALL=C.UTF-8 grep -HnE '^.{121,}' $(LAID_OUT) || { echo "longer than 120 columns" >&2; exit 1; }
	$(PYTHON) -m compileall -q $(PYTHON_FOLDERS)
	$(AGAIN) --jobs=$(JOBS) $(SOURCES:src/%.cpp=$(BUILD)/tidy/%)

# One empty file for each source that clang-tidy has found nothing in.
$(BUILD)/tidy/%: src/%.cpp $(HEADERS) .clang-tidy
	clang-tidy --quiet -p "$(BUILD)" $<
	@mkdir -p $(@D) && touch $@

format: ## lay out the lines of all C++
	@$(PACKAGES) install $(CLANG_FORMAT)
	$(CLANG_FORMAT) -i $(LAID_OUT)

# All tests for faults, then a few that make an object of everything for leaks: exact stacks cost much time.
asan: test-setup ## run the tests under the address and undefined-behaviour sanitizers, then look for leaks
	$(AGAIN) build $(SANITIZED_BUILD)
	PYTHONPATH=build-asan $(HEADLESS) $(SANITIZED) $(PYTHON) -m pytest -q --capture=sys tests $(ARGS)
	PYTHONPATH=build-asan $(HEADLESS) $(SANITIZED):$(EXACT_STACKS) $(PYTHON) scripts/check_leaks.py -q --capture=sys $(LEAK_TESTS)

fuzz: setup ## attack the module with hostile calls and damaged files (ARGS="--seconds 3600", see --help)
	$(AGAIN) build
	$(RUN) scripts/fuzz.py $(ARGS)

asan-fuzz: setup ## the same under the sanitizers
	$(AGAIN) build $(SANITIZED_BUILD)
	PYTHONPATH="$(abspath build-asan)" $(SANITIZED):max_allocation_size_mb=500 $(PYTHON) scripts/fuzz.py $(ARGS)

stubs: build ## check that the type stubs and the module agree, doc strings included
	@$(PACKAGES) install $(STUBS_PACKAGES)
	$(HEADLESS) $(RUN) scripts/stub_docs.py --check
	MYPYPATH="$(BUILD)" $(HEADLESS) $(RUN) -m mypy.stubtest zelvarine --allowlist stubs/allowlist.txt

stub-docs: build ## write the doc strings of the module into the type stubs
	$(HEADLESS) $(RUN) scripts/stub_docs.py

# These, and nothing else here, need Python's package index.
wheel: setup ## build a wheel with SDL's libraries in it into dist/, and play the demo with nothing else
	@$(PACKAGES) install $(VENV_PACKAGES)
	$(AGAIN) build
	scripts/wheel "$(PYTHON)" "$(BUILD)" $(CMAKE_OPTIONS)

wheels: ## the same for each Python at hand, from 3.7 to 3.13
	@for python in $$(scripts/interpreters); do \
		$(MAKE) --no-print-directory wheel PYTHON=$$python BUILD=build-$$($$python -c 'import sys; print("%d.%d" % sys.version_info[:2])') || exit; \
	done

freeze: wheel ## make a program of the README's first game by PyInstaller, and play that
	"$(BUILD)/clean/bin/pip" install --quiet --disable-pip-version-check pytest pyinstaller
	$(HEADLESS) "$(BUILD)/clean/bin/python" -m pytest -q tests/test_freezing.py

sdist: ## pack the sources into dist/
	@$(PACKAGES) install $(VENV_PACKAGES)
	$(PYTHON) -m venv --clear "$(BUILD)/tools"
	"$(BUILD)/tools/bin/pip" install --quiet --disable-pip-version-check build
	"$(BUILD)/tools/bin/python" -m build --sdist --outdir dist

all: build lint test asan ## these four
