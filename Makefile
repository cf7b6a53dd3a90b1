# Front door: `make` builds, `make run` starts the game, `make test` runs every test, `make bench` measures.
# `make fuzz` fuzzes the puzzle file reader for FUZZ_SECONDS seconds on one core.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps build run test bench format clean fuzz install package

all: build

deps:
	@bash tools/setup-deps.sh

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

run: build
	$(BUILD)/bin/varno

test: build
	clang-format --dry-run --Werror $$(git ls-files '*.cpp' '*.h')
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# Only the benchmark and the programs it starts are built: the tests are not measured.
bench: deps $(BUILD)/CMakeCache.txt
	@bash tools/setup-deps.sh bench
	cmake --build $(BUILD) -j $(JOBS) --target varno_bench
	$(BUILD)/bin/varno_bench

# Installs under PREFIX (default /usr/local; DESTDIR stages it); `make package` writes a .deb into BUILD.
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

package: build
	cd $(BUILD) && cpack -G DEB

FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 600

# Its own clang build with libFuzzer and the sanitizers, seeded with sound files of every size and type.
fuzz: build
	@command -v clang++ >/dev/null || { s=""; [ "$$(id -u)" -eq 0 ] || s=sudo; \
		$$s apt-get update -qq && $$s apt-get install -y -qq --no-install-recommends clang; }
	@[ -f $(FUZZ_BUILD)/CMakeCache.txt ] || \
		cmake -S fuzz -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	$(BUILD)/bin/makepuzzles $(FUZZ_BUILD)/seeds
	mkdir -p $(FUZZ_BUILD)/corpus
	cd $(FUZZ_BUILD) && ./fuzz_puzzlefile -max_total_time=$(FUZZ_SECONDS) -jobs=1 -workers=1 -timeout=10 \
		-max_len=36000 -print_final_stats=1 corpus seeds

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD)
