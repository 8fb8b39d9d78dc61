# VELMAR_BUILD_FUZZ=ON (clang only) instruments every library for libFuzzer's coverage and
# builds the harnesses of tests/fuzz; scripts/test_fuzz.sh configures it together with
# VELMAR_SANITIZE=address,undefined. Undefined behaviour aborts, so that the fuzzer sees it.
if(VELMAR_BUILD_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "VELMAR_BUILD_FUZZ needs clang (libFuzzer); configure with CMAKE_CXX_COMPILER=clang++")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-recover=all)
    # libstdc++ 12 declares std::expected only when __cpp_concepts is 202002L. Clang 16 has
    # what that needs (conditionally trivial special members) but still reports 201907L.
    if(CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 16)
        add_compile_options(-U__cpp_concepts -D__cpp_concepts=202002L)
    endif()
endif()
