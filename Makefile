BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)
SANITIZE_DIR ?= build-sanitize
FUZZ_DIR ?= build-fuzz
FUZZER ?= header
FUZZ_SECONDS ?= 60
CHECK_FUZZ_SECONDS ?= 30

.PHONY: all deps configure build run test check-sanitizers fuzz-configure fuzz check-fuzz bench \
	format clean

all: build

deps:
	@./scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) > /dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	./$(BUILD_DIR)/src/lumbra $(ARGS)

test: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The whole suite built with AddressSanitizer and UndefinedBehaviorSanitizer; the
# sanitizers' run-time options come with each test (tests/CMakeLists.txt).
check-sanitizers: deps
	@cmake -S . -B $(SANITIZE_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DLUMBRA_SANITIZE=ON > /dev/null
	@cmake --build $(SANITIZE_DIR) -j $(JOBS)
	cd $(SANITIZE_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The libFuzzer targets (fuzz/) are built with clang into $(FUZZ_DIR).
fuzz-configure:
	@./scripts/install-deps.sh clang libclang-rt-dev
	@cmake -S . -B $(FUZZ_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DCMAKE_CXX_COMPILER=clang++ \
		-DLUMBRA_FUZZ=ON > /dev/null

# Writes target $(1)'s seeds into its corpus and fuzzes from there for $(2) seconds,
# with the further libFuzzer options $(3); what it finds lands in $(FUZZ_DIR).
define run-fuzzer
./$(FUZZ_DIR)/fuzz/fuzz-$(1)-seeds $(FUZZ_DIR)/corpus/$(1)
UBSAN_OPTIONS=print_stacktrace=1 ./$(FUZZ_DIR)/fuzz/fuzz-$(1) -max_total_time=$(2) \
	-print_final_stats=1 $(3) -artifact_prefix=$(FUZZ_DIR)/ $(FUZZ_DIR)/corpus/$(1)
endef

# Runs one fuzz target for FUZZ_SECONDS.
fuzz: fuzz-configure
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzz-$(FUZZER) fuzz-$(FUZZER)-seeds
	$(call run-fuzzer,$(FUZZER),$(FUZZ_SECONDS))

# Builds every fuzz target and runs each for CHECK_FUZZ_SECONDS, so that a build break,
# a crash, a broken invariant or an input that takes over 10 seconds fails CI.
check-fuzz: fuzz-configure
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzz-header fuzz-header-seeds \
		fuzz-archive fuzz-archive-seeds
	$(call run-fuzzer,header,$(CHECK_FUZZ_SECONDS),-timeout=10)
	$(call run-fuzzer,archive,$(CHECK_FUZZ_SECONDS),-timeout=10)

# Lumbra timed against the floor of its work; strace counts its file-system calls,
# callgrind its instructions.
bench: build
	@./scripts/install-deps.sh strace valgrind
	./bench/run.sh $(BUILD_DIR)

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR)
