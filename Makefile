# Larkspan's commands. Each sets up what it needs; the second time it does only what changed.
.DEFAULT_GOAL := help
.PHONY: help setup setup-lint setup-bench build run demo tour test asan tsan macos bench lint format clean soak soak-desktop
MAKEFLAGS += --no-print-directory

help:
	@echo "make run     start the bar on this display (without a display: play the demo tour)"
	@echo "make test    build and run every test, the end-to-end tests on a display of their own"
	@echo "make demo    a simulated Mac in a window, with the bar on it"
	@echo "make tour    play the demo tour without a display and write its pictures"
	@echo "make lint    formatting, clang-tidy and qmllint"
	@echo "make format  format every source"
	@echo "make asan    the system's tests under AddressSanitizer and UndefinedBehaviorSanitizer"
	@echo "make tsan    the system's tests under ThreadSanitizer"
	@echo "make macos SDK=…  what a Mac builds, compiled and linked on Linux against an SDK"
	@echo "make soak SECONDS=60 SEED=1   random days on the simulated Mac, whose rules are checked after each step"
	@echo "make soak-desktop SECONDS=120 SEED=1   random acts on a private X11 desktop, the report against the X server"
	@echo "make bench   the model's benchmarks"
	@echo "make clean   remove every build folder"

# Quick when nothing is missing, so every target may ask for it.
setup:
	@scripts/setup
setup-lint:
	@scripts/setup lint
setup-bench:
	@scripts/setup bench

# A configured folder reconfigures itself when a CMake file changes.
build/%/build.ninja: | setup
	@cmake --preset $*

build: build/release/build.ninja
	@cmake --build --preset release --target larkspan

run: build
	@scripts/run

demo: build
	@build/release/bin/larkspan --demo

tour: build
	@env -u DISPLAY scripts/run

test: build/release/build.ninja
	@cmake --build --preset release
	@ctest --preset release

# Without a seed a new one each time; it is printed.
soak: build/release/build.ninja
	@cmake --build --preset release --target larkspan_soak
	@build/release/bin/larkspan_soak $(or $(SECONDS),60) $(SEED)

# Without a seed a new one each time; the test prints it.
soak-desktop: build/release/build.ninja
	@cmake --build --preset release --target larkspan e2e_tests
	@LARKSPAN_DESKTOP_SECONDS=$(or $(SECONDS),120) LARKSPAN_DESKTOP_SEED=$(or $(SEED),$(shell date +%N | sed 's/^0*//')) \
		build/release/bin/e2e_tests --gtest_filter='RandomDesktop.*'

asan tsan: %: build/%/build.ninja
	@cmake --build --preset $@
	@ctest --preset $@

build/bench/build.ninja: | setup-bench
bench: build/bench/build.ninja
	@cmake --build --preset bench --target larkspan_bench
	@build/bench/bin/larkspan_bench

# The SDK is a folder that the caller has; the script says what is needed.
macos:
	@scripts/macos "$(SDK)"

# Reads every source by itself, so that each includes what it uses; needs nothing built but the headers' own units.
lint: build/single/build.ninja | setup-lint
	@cmake --build --preset single --target larkspan_headers
	@scripts/lint

format: | setup-lint
	@git ls-files '*.cpp' '*.h' '*.mm' | xargs clang-format -i

clean:
	rm -rf build
