BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)
SANITIZE_DIR ?= build-sanitize
FUZZ_DIR ?= build-fuzz
FUZZER ?= header
FUZZ_SECONDS ?= 60

.PHONY: all deps configure build run test check-sanitizers fuzz bench format clean

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

# Runs one libFuzzer target (fuzz/) for FUZZ_SECONDS; what it finds lands in $(FUZZ_DIR).
fuzz:
	@./scripts/install-deps.sh clang libclang-rt-dev
	@cmake -S . -B $(FUZZ_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DCMAKE_CXX_COMPILER=clang++ \
		-DLUMBRA_FUZZ=ON > /dev/null
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzz-$(FUZZER) fuzz-$(FUZZER)-seeds
	./$(FUZZ_DIR)/fuzz/fuzz-$(FUZZER)-seeds $(FUZZ_DIR)/corpus/$(FUZZER)
	UBSAN_OPTIONS=print_stacktrace=1 ./$(FUZZ_DIR)/fuzz/fuzz-$(FUZZER) \
		-max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
		-artifact_prefix=$(FUZZ_DIR)/ $(FUZZ_DIR)/corpus/$(FUZZER)

# Lumbra timed against the floor of its work; strace counts its file-system calls,
# callgrind its instructions.
bench: build
	@./scripts/install-deps.sh strace valgrind
	./bench/run.sh $(BUILD_DIR)

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR)
