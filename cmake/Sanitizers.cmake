# Instrumented builds, each in a build folder of its own (see the Makefile):
#  LUMBRA_SANITIZE  AddressSanitizer and UndefinedBehaviorSanitizer on every target,
#                   for `make check-sanitizers`; any undefined behaviour fails the run.
#  LUMBRA_FUZZ      clang's libFuzzer coverage with the same sanitizers; fuzz/ adds
#                   the fuzz targets in place of the tests and benchmarks.
option(LUMBRA_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(LUMBRA_FUZZ "Build the libFuzzer targets of fuzz/ (needs clang)" OFF)

set(LUMBRA_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined
                           -fno-omit-frame-pointer)

if(LUMBRA_SANITIZE AND LUMBRA_FUZZ)
    message(FATAL_ERROR "LUMBRA_SANITIZE and LUMBRA_FUZZ need separate build folders")
elseif(LUMBRA_SANITIZE)
    add_compile_options(${LUMBRA_SANITIZER_FLAGS})
    add_link_options(${LUMBRA_SANITIZER_FLAGS})
elseif(LUMBRA_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "LUMBRA_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++")
    endif()
    # Coverage hooks everywhere; only the fuzz targets link libFuzzer's own main.
    add_compile_options(-fsanitize=fuzzer-no-link ${LUMBRA_SANITIZER_FLAGS})
    add_link_options(${LUMBRA_SANITIZER_FLAGS})
endif()

# The run-time options every test of a sanitized build gets: stop at the first
# report with a stack trace, and leave out the leaks listed in lsan.supp.
set(LUMBRA_SANITIZER_ENVIRONMENT
    "ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1"
    "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
    "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0")
