# Each target installs and builds what it needs; the next time, only what changed.
.DEFAULT_GOAL := help
.PHONY: help setup setup-lint setup-bench build run demo tour test asan tsan macos bench lint format clean soak soak-desktop
MAKEFLAGS += --no-print-directory

help:
	@echo "make run     start the bar on this display (without a display: play the demo tour)"
	@echo "make test    build and run every test; the end-to-end tests use their own display"
	@echo "make demo    open a simulated Mac with the bar in a window"
	@echo "make tour    play the demo tour without a display and write its pictures"
	@echo "make lint    check formatting, run qmllint, and clang-tidy on what a change touches (ALL=1: on everything)"
	@echo "make format  format every source"
	@echo "make asan    run the system's tests under AddressSanitizer and UndefinedBehaviorSanitizer"
	@echo "make tsan    run the tests with threads under ThreadSanitizer"
	@echo "make macos SDK=…  compile and link the Mac build on Linux, with an SDK"
	@echo "make soak SECONDS=60 SEED=1   run random days on the simulated Mac, and check the rules after each step"
	@echo "make soak-desktop SECONDS=120 SEED=1   act at random on a private X11 desktop, and compare the report with the X server"
	@echo "make bench   run the benchmarks of the model"
	@echo "make clean   remove all build folders"

# Fast if nothing is missing, so every target may depend on it.
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

# Without a seed, uses a new one and prints it.
soak: build/release/build.ninja
	@cmake --build --preset release --target larkspan_soak
	@build/release/bin/larkspan_soak $(or $(SECONDS),60) $(SEED)

# Without a seed, uses a new one, which the test prints.
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

# The caller provides the SDK; the script explains how.
macos:
	@scripts/macos "$(SDK)"

# Builds nothing: clang only needs the compile commands.
lint: build/single/build.ninja $(if $(ALL),build/release/build.ninja) | setup-lint
	@scripts/lint

format: | setup-lint
	@git ls-files '*.cpp' '*.h' '*.mm' | xargs clang-format -i

clean:
	rm -rf build
