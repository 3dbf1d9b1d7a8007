# The two commands a newcomer needs are `make demo` and `make test`; both
# install what is missing first and build into build/.

BUILD      ?= build
ASAN_BUILD ?= build-asan
TSAN_BUILD ?= build-tsan
JOBS       ?= $(shell nproc)
CMAKE_ARGS ?=

.PHONY: all deps configure build test demo bench bench-check package sanitize test-sanitize tsan test-tsan monkey monkey-sanitize fuzz fuzz-scenes format clean

all: build

deps:
	@scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_ARGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

demo: build
	@scripts/demo.sh $(BUILD)

# Every benchmark program, then the check of each figure against its floor
# from the same run (bench/floors.txt); the check fails when a ratio misses
# its target. `make bench-check` checks the figures of the last run again;
# BENCH_CHECK_TIME=cpu_time compares CPU time on a machine others load.
BENCH_CHECK_TIME ?= real_time
bench: build
	@scripts/install-deps.sh bench
	@scripts/bench.sh $(BUILD)
	@python3 scripts/bench-check.py --figures $(BUILD)/bench --time $(BENCH_CHECK_TIME)

bench-check:
	@python3 scripts/bench-check.py --figures $(BUILD)/bench --time $(BENCH_CHECK_TIME)

# A Debian package of what `cmake --install` installs, under /usr. Its
# dependencies come from dpkg-shlibdeps: they are printed, and a package that
# depends on no Coin or no Qt package is refused, as dpkg-shlibdeps then
# missed the libraries the build linked against. lintian checks it last: an
# error, or a warning packaging/kaldefaults.lintian-overrides does not
# explain, fails.
package: build
	@scripts/install-deps.sh package
	@cmake --build $(BUILD) --target package
	@deb="$$(ls -t $(BUILD)/kaldefaults_*.deb | head -n 1)"; \
	  dpkg-deb --field "$$deb" Package Version Depends; \
	  depends="$$(dpkg-deb --field "$$deb" Depends)"; \
	  case "$$depends" in *libcoin*) ;; *) echo "$$deb depends on no Coin package" >&2; exit 1;; esac; \
	  case "$$depends" in *libqt5*) ;; *) echo "$$deb depends on no Qt package" >&2; exit 1;; esac; \
	  lintian --fail-on error,warning "$$deb" && echo "lintian: $$deb has no errors and no unexplained warnings"

# The whole suite again with AddressSanitizer and UndefinedBehaviorSanitizer,
# leak detection on. Benchmarks are left out: they measure, they do not test.
sanitize: deps
	@cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DKAL_SANITIZE=ON -DKAL_BUILD_BENCHMARKS=OFF >/dev/null
	@cmake --build $(ASAN_BUILD) -j $(JOBS)

test-sanitize: sanitize
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=1:abort_on_error=1:strict_init_order=1:detect_stack_use_after_return=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# The tests where threads meet, under ThreadSanitizer: the console's (its
# redirectors and error handler take writes from any thread), the input
# storm, and kalhost's (scenes are read, written and freed on a thread of
# their own), with the replay of the scene corpus, which opens and saves
# every scene of it the way kalhost does. Only their programs are built. The
# installation test is left out: it installs the whole build. The host's
# runs on a real X server are not made in this build at all (see
# tests/host): the software OpenGL driver's threads and Qt's X event reader
# are not ours to check. tests/tsan.supp says what is Qt's or Coin's own and
# why. It takes too long for CI (see the README): it runs before each
# release. ccache, where it is installed, keeps a rebuild from nothing short.
TSAN_CCACHE := $(if $(shell command -v ccache),-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
TSAN_TESTS ?= ^(tst_Console.*|tst_Monkey|tst_Host.*|tst_KalHost.*|tst_SceneFilter.*|tst_SceneModel|tst_StandInHost|tst_ViewPicker|scene_corpus_replay)$$
tsan: deps
	@cmake -S . -B $(TSAN_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAL_TSAN=ON -DKAL_BUILD_BENCHMARKS=OFF $(TSAN_CCACHE) >/dev/null
	@targets="$$(cd $(TSAN_BUILD) && ctest -N -R '$(TSAN_TESTS)' | sed -n 's/^ *Test *#[0-9]*: //p')"; \
	  cmake --build $(TSAN_BUILD) -j $(JOBS) --target $$targets

test-tsan: tsan
	cd $(TSAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  TSAN_OPTIONS="suppressions=$(CURDIR)/tests/tsan.supp second_deadlock_stack=1 history_size=4" \
	  ctest --output-on-failure -j $(JOBS) -R '$(TSAN_TESTS)'

# The input storm at full length: 100,000 seeded events (KAL_MONKEY_SEED to
# pick another run), plainly and under the sanitizers.
MONKEY_EVENTS ?= 100000
monkey: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen KAL_MONKEY_EVENTS=$(MONKEY_EVENTS) ./bin/tst_Monkey -silent

monkey-sanitize: sanitize
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen KAL_MONKEY_EVENTS=$(MONKEY_EVENTS) \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ./bin/tst_Monkey -silent

# The libFuzzer target of the editors' text paths, built with clang into
# $(FUZZ_BUILD), run for FUZZ_SECONDS on a copy of fuzz/corpus. What it adds
# to the corpus stays in the copy; inputs that break something are written
# to $(FUZZ_FINDS), to be minimised and added to fuzz/corpus by hand. No
# leak check per input: Qt and Coin fill caches on first use, which libFuzzer
# takes for leaks; the corpus replay under `make test-sanitize` checks leaks.
FUZZ_BUILD   ?= build-fuzz
FUZZ_SECONDS ?= 120
FUZZ_FINDS   ?= $(FUZZ_BUILD)/finds
fuzz:
	@scripts/install-deps.sh fuzz
	@CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAL_FUZZ=ON \
	  -DKAL_BUILD_BENCHMARKS=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS) --target FieldTextFuzzer
	rm -rf $(FUZZ_BUILD)/corpus && mkdir -p $(FUZZ_BUILD)/corpus $(FUZZ_FINDS)
	cp fuzz/corpus/* $(FUZZ_BUILD)/corpus/
	QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  $(FUZZ_BUILD)/bin/FieldTextFuzzer -max_total_time=$(FUZZ_SECONDS) -max_len=80000 -timeout=30 \
	  -print_final_stats=1 -artifact_prefix=$(FUZZ_FINDS)/ $(FUZZ_BUILD)/corpus

# The libFuzzer target of kalhost's scene opening (text and binary scenes,
# the files they include, Save and Open again), the same way on a copy of
# fuzz/corpus-scenes and the sample scene, with the words of scene files
# (fuzz/scenes.dict). Leaks are looked for after every input: the full
# stacks let tests/lsan.supp pass over what Coin allocates once for good.
# A scene that takes longer than FUZZ_SCENE_TIMEOUT
# seconds counts as a hang. FUZZ_SCENES_ARGS passes more options (-jobs,
# -seed). The README's fuzzing section has the long run's figures.
FUZZ_SCENE_TIMEOUT ?= 20
FUZZ_SCENES_ARGS   ?=
fuzz-scenes:
	@scripts/install-deps.sh fuzz
	@CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAL_FUZZ=ON \
	  -DKAL_BUILD_BENCHMARKS=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS) --target SceneOpenFuzzer
	rm -rf $(FUZZ_BUILD)/corpus-scenes && mkdir -p $(FUZZ_BUILD)/corpus-scenes $(FUZZ_FINDS)
	cp fuzz/corpus-scenes/* host/app/scenes/*.iv $(FUZZ_BUILD)/corpus-scenes/
	QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  $(FUZZ_BUILD)/bin/SceneOpenFuzzer -max_total_time=$(FUZZ_SECONDS) -max_len=16384 \
	  -timeout=$(FUZZ_SCENE_TIMEOUT) -rss_limit_mb=4096 -dict=fuzz/scenes.dict -print_final_stats=1 \
	  -artifact_prefix=$(FUZZ_FINDS)/scene- $(FUZZ_SCENES_ARGS) $(FUZZ_BUILD)/corpus-scenes

format:
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(TSAN_BUILD) $(FUZZ_BUILD)
