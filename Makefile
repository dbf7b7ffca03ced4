# make run   installs what is missing, builds, and runs the host program on the
#            bundled support folder.
# make test  installs what is missing, builds, and runs every test.
# make asan  the test suite again in an AddressSanitizer + UBSan build, made
#            with clang, so that CI builds and tests with both compilers.
# make bench builds and runs the benchmarks.
# make fuzz  builds every fuzz target with libFuzzer (clang, ASan + UBSan, the
#            module instrumented for coverage) and runs each for FUZZ_SECONDS.

BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
BUILD_TYPE ?= RelWithDebInfo
JOBS       ?= $(shell nproc)
PACKAGES   := cmake ninja-build g++ make libgtest-dev libgmock-dev libbenchmark-dev \
              libpugixml-dev python3 python3-ezdxf python3-matplotlib python3-pefile
ASAN_PACKAGES := clang-14 libclang-rt-14-dev
SUDO       := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
RUN_DIR    := $(BUILD)/run

.PHONY: all deps asan-deps configure build run test asan fuzz bench clean

all: build

# Installs only what dpkg does not already have, so a prepared machine pays nothing.
define install_missing
	@missing=""; for p in $(1); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "installing:$$missing"; \
	  $(SUDO) apt-get update -qq && DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq $$missing; \
	fi
endef

deps:
	$(call install_missing,$(PACKAGES))

asan-deps: deps
	$(call install_missing,$(ASAN_PACKAGES))

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE)

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

# Builds only what it runs: the host program, the module and its sibling.
# Each script of tools/scripts/run.d shows one subsystem at work.
run: configure
	cmake --build $(BUILD) -j $(JOBS) --target tolv TolvSibling
	rm -rf $(RUN_DIR) && mkdir -p $(RUN_DIR) && cp -r share/support $(RUN_DIR)/support
	@for s in tools/scripts/run.d/*.sh; do \
	  echo "==== $$s"; \
	  TOLV=$(BUILD)/bin/tolv RUN_DIR=$(RUN_DIR) SUPPORT=$(RUN_DIR)/support bash $$s || exit 1; \
	done

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

asan: asan-deps
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTOLV_SANITIZE=ON -DTOLV_BUILD_BENCH=OFF \
	  -DCMAKE_CXX_COMPILER=clang++-14
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --test-dir $(ASAN_BUILD) --output-on-failure -j $(JOBS)

fuzz: asan-deps
	cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOLV_LIBFUZZER=ON \
	  -DTOLV_BUILD_TESTS=OFF -DTOLV_BUILD_BENCH=OFF -DCMAKE_CXX_COMPILER=clang++-14
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target $(notdir $(basename $(wildcard fuzz/fuzz_*.cpp)))
	tools/scripts/fuzz.sh $(FUZZ_BUILD) $(FUZZ_SECONDS)

bench: build
	@for b in $(BUILD)/bin/bench_*; do [ -x "$$b" ] && echo "== $$b" && $$b; done; true

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)
