# The language, the warnings and the code generation that every target of this project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# A Windows program finds a DLL that lies beside it, so all programs and the DLL share one folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "The kind of build" FORCE)
endif()

add_library(TnCompilerSettings INTERFACE)
target_compile_options(TnCompilerSettings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${TNGRAPHICS_WARNINGS_AS_ERRORS}>:-Werror>
    # Fused multiply-add would round differently from one processor and compiler to the next.
    -ffp-contract=off)

# Whatever is linked for Windows carries the compiler's runtime inside it.
target_link_options(TnCompilerSettings INTERFACE $<$<BOOL:${MINGW}>:-static>)

# Sources of kernels for a processor level: AVX2 or AVX512. No other source is compiled for more than the baseline.
function(tn_set_level_options level)
    set(options -mavx2)
    if(level STREQUAL "AVX512")
        list(APPEND options -mavx512f -mavx512bw -mavx512vl -mavx512dq)
    endif()
    if(MINGW)
        # Win64 aligns the stack to 16 bytes only, yet the compiler spills wider vectors there with aligned moves.
        list(APPEND options -Wa,-muse-unaligned-vector-move)
    endif()
    if(level STREQUAL "AVX512" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The compiler's own header passes undefined vectors where all lanes are masked in, and then warns of them.
        list(APPEND options -Wno-maybe-uninitialized -Wno-uninitialized)
    endif()
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "${options}")
endfunction()
