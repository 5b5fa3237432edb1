# Compiler settings of every target: language level, warnings, the fast linker and the compiler cache where they exist.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

# For C++ alone: the embedded data passes through the assembler of the C compiler.
function(add_cxx_options)
  foreach(OPTION IN LISTS ARGN)
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:${OPTION}>")
  endforeach()
endfunction()

add_cxx_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wno-unused-parameter -Werror)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # These four report library internals of inlined std::wstring and std::function, not our code.
  add_cxx_options(-Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread -Wno-maybe-uninitialized)
else()
  # UE_LOG and friends may be called without arguments after the format: C++20 allows it, this clang still objects.
  add_cxx_options(-Wno-gnu-zero-variadic-macro-arguments -Wmissing-prototypes)
endif()

find_program(MORVANE_MOLD mold)
if(MORVANE_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

find_program(MORVANE_CCACHE ccache)
if(MORVANE_CCACHE)
  # A precompiled header changes its time on every fresh checkout; without these the cache would never hit.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime;CCACHE_BASEDIR=${CMAKE_SOURCE_DIR};${MORVANE_CCACHE}")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_cxx_options(-fpch-preprocess)
  else()
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
  endif()
endif()
