# How everything here is compiled: the language, the warnings, the sanitizers, the compiler cache.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel" FORCE)
endif()

find_program(VX_CCACHE ccache)
mark_as_advanced(VX_CCACHE)
if(VX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VX_CCACHE}")
endif()

add_library(vx_warnings INTERFACE)
target_compile_options(vx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${VX_WERROR}>:-Werror>)

# The sanitizers stop at the first finding: a test that goes on after one proves nothing.
if(VX_SANITIZE)
    string(APPEND CMAKE_CXX_FLAGS
        " -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer")
endif()

# The fuzzers follow every branch of the libraries that they run.
if(VX_BUILD_FUZZ)
    string(APPEND CMAKE_CXX_FLAGS " -fsanitize=fuzzer-no-link")
endif()
