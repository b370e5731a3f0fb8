# The two commands of the README: `make run` and `make test`. Both install what is missing first,
# as do the other targets.
BUILD_DIR ?= build
PRESET    ?= default
JOBS      ?= $(shell nproc 2>/dev/null || echo 2)
# Seconds each fuzz target runs in `make fuzz`.
FUZZ_SECONDS ?= 60
# libFuzzer's seed: 0 chooses a new search each run; CI fixes one.
FUZZ_SEED ?= 0

.PHONY: deps configure build run test bench screenshots fuzz sanitize clean format

deps:
	@bash scripts/install-deps.sh

configure: deps
	@test -f $(BUILD_DIR)/CMakeCache.txt || cmake --preset $(PRESET)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

# Starts the editor on a fresh copy of the demo game folder; the repository's copy never changes.
run: build
	rm -rf $(BUILD_DIR)/demo-game
	cp -r demo/game $(BUILD_DIR)/demo-game
	$(BUILD_DIR)/bin/orrerion --game-dir $(BUILD_DIR)/demo-game

test: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: deps
	@test -f build-bench/CMakeCache.txt || cmake --preset bench
	cmake --build build-bench -j $(JOBS) --target orrerion-bench
	bash scripts/run-bench.sh build-bench/bin/orrerion-bench docs/performance.md

# Builds the libFuzzer targets (clang, build-fuzz) and runs each for FUZZ_SECONDS (JOBS at a
# time) on a seed corpus from demo/ and data/; fails when one finds a crash, a hang or a
# disagreement.
fuzz: deps
	@test -f build-fuzz/CMakeCache.txt || cmake --preset fuzz
	cmake --build build-fuzz -j $(JOBS)
	FUZZ_SEED=$(FUZZ_SEED) bash scripts/run-fuzz.sh build-fuzz $(FUZZ_SECONDS) $(JOBS)

# The core and command-line tests built with AddressSanitizer and UndefinedBehaviorSanitizer
# (build-sanitize); any finding fails its test.
sanitize: deps
	@test -f build-sanitize/CMakeCache.txt || cmake --preset sanitize
	cmake --build build-sanitize -j $(JOBS)
	cd build-sanitize && ASAN_OPTIONS=detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1 \
		UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure -j $(JOBS)

screenshots: build
	bash scripts/screenshots.sh $(BUILD_DIR)

format:
	find src tests bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD_DIR) build-bench build-fuzz build-sanitize
