# Front door: `make` builds, `make run` starts the game, `make test` runs every test, `make bench` measures.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps build run test bench format clean

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

bench: build
	$(BUILD)/bin/varno_bench

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD)
