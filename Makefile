# Front door: `make` builds, `make run` starts the game, `make test` runs every test, `make bench` measures,
# `make screenshot` photographs the game in play for the README.
# `make fuzz` fuzzes the puzzle file reader, then the picture path, then the thumbnail cache's entry reader,
# each for FUZZ_SECONDS seconds on one core.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps build run test soak tsan bench format format-check clean fuzz install package translations screenshot

all: build

deps:
	@bash tools/setup-deps.sh

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

run: build
	$(BUILD)/bin/varno

SAN_BUILD ?= build-san
# Every report of the sanitizers, LeakSanitizer's at each test's exit among them, fails the test.
SAN_ENV = UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp

$(SAN_BUILD)/CMakeCache.txt:
	cmake -S . -B $(SAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DVARNO_SANITIZE=ON

# The code is formatted with this clang-format major version; other versions break lines otherwise, so
# the check is strict with this one and skipped, with one line saying so, with any other or none.
CLANG_FORMAT_VERSION = 14
CLANG_FORMAT ?= $(shell command -v clang-format-$(CLANG_FORMAT_VERSION) || echo clang-format)

format-check:
	@v=$$($(CLANG_FORMAT) --version 2>/dev/null | sed -n 's/.*clang-format version \([0-9][0-9]*\).*/\1/p'); \
	if ! command -v $(CLANG_FORMAT) >/dev/null; then \
		echo "clang-format is not installed: formatting not checked"; \
	elif [ "$$v" = "$(CLANG_FORMAT_VERSION)" ]; then \
		echo "$(CLANG_FORMAT) --dry-run --Werror (clang-format $$v)"; \
		$(CLANG_FORMAT) --dry-run --Werror $$(git ls-files '*.cpp' '*.h'); \
	else \
		echo "clang-format $${v:-of unknown version} is not the pinned $(CLANG_FORMAT_VERSION) the code is formatted with: formatting not checked"; \
	fi

# Every test, then every unit and widget test again in a second build with the address and
# undefined-behaviour sanitizers (the system tests, which start the real program, run once).
test: build $(SAN_BUILD)/CMakeCache.txt format-check
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)
	$(SAN_ENV) cmake --build $(SAN_BUILD) -j $(JOBS)
	cd $(SAN_BUILD) && $(SAN_ENV) ctest --output-on-failure -j $(JOBS) -LE system

# The long runs: 100,000 random commands in a player's order with saves, loads and restarts; then the real-window
# tests play the sanitized program (open, scramble, play, save, load, library, help, views, hint,
# minimise), whose every exit through "Exit" must leave no leak.
soak: test tsan
	QT_QPA_PLATFORM=offscreen VARNO_SOAK=1 QTEST_FUNCTION_TIMEOUT=3600000 $(BUILD)/bin/tst_soak
	cd $(BUILD) && VARNO_GAME=$(CURDIR)/$(SAN_BUILD)/bin/varno $(SAN_ENV) ctest --output-on-failure -R tst_real

TSAN_BUILD ?= build-tsan
# Every report fails the run; tests/tsan.supp says what of Qt is not watched, and why.
TSAN_ENV = TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 suppressions=$(CURDIR)/tests/tsan.supp"

$(TSAN_BUILD)/CMakeCache.txt:
	cmake -S . -B $(TSAN_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARNO_TSAN=ON

# The library window's test and the soak (as short as in `make test`) built with ThreadSanitizer: the
# thumbnail decoders and the cache's writer thread beside the window's.
tsan: deps $(TSAN_BUILD)/CMakeCache.txt
	cmake --build $(TSAN_BUILD) -j $(JOBS) --target tst_libfrm tst_soak
	cd $(TSAN_BUILD) && $(TSAN_ENV) ctest --output-on-failure -R '^tst_(libfrm|soak)$$'

# Brings resources/translations/*.ts in step with the game's texts: new texts come in unfinished, texts gone
# are dropped. `make test` fails until every language has its translation of every text.
translations: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) --target translations

# Only the benchmark and the programs it starts are built: the tests are not measured.
bench: deps $(BUILD)/CMakeCache.txt
	@bash tools/setup-deps.sh bench
	cmake --build $(BUILD) -j $(JOBS) --target varno_bench
	$(BUILD)/bin/varno_bench

# Installs under PREFIX (default /usr/local; DESTDIR stages it); `make package` writes a .deb into BUILD.
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# Debian's own checker passes the package or the rule fails; its information notes are shown, not fatal.
package: build
	cd $(BUILD) && rm -f varno_*.deb && cpack -G DEB && lintian --display-info --fail-on error,warning varno_*.deb

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
	# Small pictures of every kind the path reads, cut down from a starter picture by libjpeg's tools.
	mkdir -p $(FUZZ_BUILD)/picture-seeds && cd $(FUZZ_BUILD)/picture-seeds && \
		djpeg -scale 1/8 -bmp ../../$(BUILD)/bin/lib/VX_harbour.jpg > a.bmp && \
		djpeg -scale 1/8 -bmp -colors 16 ../../$(BUILD)/bin/lib/VX_harbour.jpg > p.bmp && \
		djpeg -scale 1/8 -gif ../../$(BUILD)/bin/lib/VX_harbour.jpg > a.gif && \
		cjpeg -quality 50 a.bmp > a.jpg && cjpeg -progressive a.bmp > p.jpg && cjpeg -grayscale a.bmp > g.jpg
	# And every picture the fuzzer once found a fault with.
	cp fuzz/findings/*.bmp $(FUZZ_BUILD)/picture-seeds/
	mkdir -p $(FUZZ_BUILD)/picture-corpus
	cd $(FUZZ_BUILD) && ./fuzz_picture -max_total_time=$(FUZZ_SECONDS) -jobs=1 -workers=1 -timeout=30 \
		-rss_limit_mb=3072 -max_len=40000 -print_final_stats=1 picture-corpus picture-seeds
	# Entries of the thumbnail cache, seeded with those its own writer makes (the target writes them when asked)
	# and with every entry the fuzzer once found a fault with.
	# No entry needs more than a few megabytes: a larger allocation is a claim in the bytes believed. libpng's
	# line on every broken input goes: the fuzzer's own output and the sanitizers' reports stay.
	mkdir -p $(FUZZ_BUILD)/thumb-seeds $(FUZZ_BUILD)/thumb-corpus
	cp fuzz/findings/*.png $(FUZZ_BUILD)/thumb-seeds/
	cd $(FUZZ_BUILD) && VARNO_FUZZ_SEEDS=thumb-seeds ./fuzz_thumbentry -max_total_time=$(FUZZ_SECONDS) -jobs=1 \
		-workers=1 -timeout=30 -rss_limit_mb=3072 -malloc_limit_mb=64 -close_fd_mask=2 -max_len=40000 \
		-print_final_stats=1 thumb-corpus thumb-seeds

# The README's picture of a puzzle in play, photographed from the real window on a private X server.
screenshot: build
	bash tools/screenshot.sh $(BUILD) docs/screenshot.png

format:
	$(CLANG_FORMAT) -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) $(SAN_BUILD) $(TSAN_BUILD)
