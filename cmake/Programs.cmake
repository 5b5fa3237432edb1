# The host library and what is linked from it: the program, the tests, the benchmarks.

file(GLOB_RECURSE HOST_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Host/*.cpp")
file(GLOB HOST_MAIN CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Host/Main.cpp")
list(REMOVE_ITEM HOST_SOURCES "${CMAKE_SOURCE_DIR}/Host/Main.cpp")
if(NOT HOST_SOURCES)
  set(HOST_SOURCES "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp")
endif()
# The script that "morvane catalogue --editor-script" prints is part of the program.
set(EDITOR_SCRIPT "${CMAKE_SOURCE_DIR}/Host/ProjectCode/dump_catalogue.py")
file(READ "${EDITOR_SCRIPT}" MORVANE_EDITOR_SCRIPT)
string(STRIP "${MORVANE_EDITOR_SCRIPT}" MORVANE_EDITOR_SCRIPT)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${EDITOR_SCRIPT}")
configure_file("${CMAKE_SOURCE_DIR}/Host/ProjectCode/EditorScript.cpp.in" "${CMAKE_BINARY_DIR}/generated/EditorScript.cpp" @ONLY)
list(APPEND HOST_SOURCES "${CMAKE_BINARY_DIR}/generated/EditorScript.cpp")

add_library(MorvaneHost STATIC ${HOST_SOURCES})
target_include_directories(MorvaneHost PUBLIC "${CMAKE_SOURCE_DIR}/Host" "${CMAKE_SOURCE_DIR}")
target_link_libraries(MorvaneHost PUBLIC
  MorvaneToolkitBlueprint CLI11::CLI11 simdjson::simdjson spdlog::spdlog Threads::Threads)
# Nothing is precompiled for the host, and what includes CLI11 stands in no batch: the engine's check() macro must not come
# before that library's headers.
set_source_files_properties("${CMAKE_SOURCE_DIR}/Host/Cli/Arguments.cpp" "${CMAKE_SOURCE_DIR}/Host/Cli/CommandLine.cpp"
  PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

# Start-up is mostly allocation; a faster allocator is welcome where the sanitizers do not bring their own.
function(morvane_fast_allocator NAME)
  if(TARGET mimalloc AND CMAKE_BUILD_TYPE STREQUAL "Release")
    target_link_libraries(${NAME} PRIVATE mimalloc)
  endif()
endfunction()

if(HOST_MAIN)
  add_executable(morvane ${HOST_MAIN})
  target_link_libraries(morvane PRIVATE MorvaneHost)
  morvane_fast_allocator(morvane)
endif()

# Tests and benchmarks may look inside a module; nothing else may.
file(GLOB MORVANE_PRIVATE_FOLDERS CONFIGURE_DEPENDS LIST_DIRECTORIES true
  "${CMAKE_SOURCE_DIR}/Source/*/Private" "${CMAKE_SOURCE_DIR}/Editor/*/Private")

file(GLOB_RECURSE TEST_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Tests/*.cpp")
list(FILTER TEST_SOURCES EXCLUDE REGEX "/Tests/Fuzz/")
if(TEST_SOURCES)
  add_executable(MorvaneTests ${TEST_SOURCES})
  target_include_directories(MorvaneTests PRIVATE "${CMAKE_SOURCE_DIR}/Tests" "${CMAKE_SOURCE_DIR}/Tests/Support"
    ${MORVANE_PRIVATE_FOLDERS})
  target_compile_definitions(MorvaneTests PRIVATE MORVANE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_link_libraries(MorvaneTests PRIVATE MorvaneHost EditorTesting GTest::gmock_main GTest::gmock GTest::gtest)
  # What is tested is optimised, the tests themselves need not be: they compile in half the time so. Their helpers of the
  # same names keep them out of a batch.
  target_compile_options(MorvaneTests PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:-O0>")
  set_target_properties(MorvaneTests PROPERTIES UNITY_BUILD OFF)
  target_precompile_headers(MorvaneTests PRIVATE
    ${MORVANE_CORE_PCH} ${MORVANE_OBJECT_PCH} <gmock/gmock.h> <gtest/gtest.h>)
  if(TARGET morvane)
    target_compile_definitions(MorvaneTests PRIVATE MORVANE_PROGRAM="$<TARGET_FILE:morvane>")
    add_dependencies(MorvaneTests morvane)
  endif()
endif()

file(GLOB_RECURSE BENCH_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Benchmarks/*.cpp")
if(BENCH_SOURCES)
  add_executable(MorvaneBench ${BENCH_SOURCES} "${CMAKE_SOURCE_DIR}/Tests/Support/TestAssets.cpp"
    "${CMAKE_SOURCE_DIR}/Tests/Support/BinaryObjectBytes.cpp" "${CMAKE_SOURCE_DIR}/Tests/Support/BinaryPackageWriter.cpp"
    "${CMAKE_SOURCE_DIR}/Tests/Support/SmallBlueprint.cpp")
  target_include_directories(MorvaneBench PRIVATE "${CMAKE_SOURCE_DIR}/Tests/Support" "${CMAKE_SOURCE_DIR}/Benchmarks" ${MORVANE_PRIVATE_FOLDERS})
  target_compile_definitions(MorvaneBench PRIVATE MORVANE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_link_libraries(MorvaneBench PRIVATE MorvaneHost benchmark::benchmark_main benchmark::benchmark)
  morvane_precompile(MorvaneBench)
  morvane_fast_allocator(MorvaneBench)
  if(TARGET morvane)
    target_compile_definitions(MorvaneBench PRIVATE MORVANE_PROGRAM="$<TARGET_FILE:morvane>")
    add_dependencies(MorvaneBench morvane)
  endif()
endif()

# One fuzzing program for each file of Tests/Fuzz, built by the preset of that name only.
if(CMAKE_BUILD_TYPE STREQUAL "Fuzz")
  add_custom_target(fuzz)
  file(GLOB FUZZ_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Tests/Fuzz/*.cpp")
  foreach(SOURCE IN LISTS FUZZ_SOURCES)
    get_filename_component(NAME "${SOURCE}" NAME_WE)
    add_executable(${NAME} ${SOURCE})
    target_include_directories(${NAME} PRIVATE "${CMAKE_SOURCE_DIR}/Tests" "${CMAKE_SOURCE_DIR}/Tests/Support"
      ${MORVANE_PRIVATE_FOLDERS})
    target_link_libraries(${NAME} PRIVATE MorvaneHost)
    # The entry is declared by nobody: the fuzzer's library looks for its name.
    target_compile_options(${NAME} PRIVATE -Wno-missing-prototypes)
    target_link_options(${NAME} PRIVATE -fsanitize=fuzzer)
    morvane_precompile(${NAME})
    add_dependencies(fuzz ${NAME})
  endforeach()
endif()
