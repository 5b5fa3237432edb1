# morvane_module(NAME DIR [DEPS...]): a library from DIR/Private/**.cpp.
# DIR/Public holds the headers that the engine has too, DIR/Standalone those that only this editor has: both are visible to
# every module above. DIR/Private is visible to the module alone. A module may have headers only.

file(WRITE "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp.in" "// This module has no source of its own yet.\n")
configure_file("${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp.in" "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp" COPYONLY)

# Globbed, so that a header that appears later re-runs the configuration.
file(GLOB MORVANE_CORE_PCH CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Editor/Core/Public/CoreMinimal.h")
file(GLOB MORVANE_OBJECT_PCH CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Editor/CoreUObject/Public/UObject/Object.h")

# As in the engine's editor: a library each, of which only what bears the module's export macro is seen from outside, with
# nothing left undefined, and each of the product's modules compiled in one piece. Only what the next module or a program
# may use links then, so the tests, which look inside, are not built.
option(MORVANE_MODULAR "Build the modules as shared libraries" OFF)
if(MORVANE_MODULAR)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
endif()

# morvane_export(NAME FOLDER): what MORVANECORE_API and its kin mean. The engine's build tool defines them, no header does.
function(morvane_export NAME FOLDER)
  string(TOUPPER "${FOLDER}_API" MACRO)
  if(NOT MORVANE_MODULAR)
    target_compile_definitions(${NAME} PUBLIC "${MACRO}=")
    return()
  endif()
  target_compile_definitions(${NAME} PUBLIC "${MACRO}=__attribute__((visibility(\"default\")))")
  target_link_options(${NAME} PRIVATE -Wl,--no-undefined)
  set_target_properties(${NAME} PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
endfunction()

function(morvane_module NAME DIR)
  file(GLOB_RECURSE SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${DIR}/Private/*.cpp")
  if(NOT SOURCES)
    set(SOURCES "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp")
  endif()
  # Its headers are included by their folder: "Standalone/ObjectText.h".
  file(GLOB STANDALONE CONFIGURE_DEPENDS LIST_DIRECTORIES true "${CMAKE_SOURCE_DIR}/${DIR}/Standalone")
  if(STANDALONE)
    set(STANDALONE "${CMAKE_SOURCE_DIR}/${DIR}")
  endif()
  if(MORVANE_MODULAR)
    add_library(${NAME} SHARED ${SOURCES})
  else()
    add_library(${NAME} STATIC ${SOURCES})
  endif()
  if(DIR MATCHES "^Source/(.*)$")
    morvane_export(${NAME} "${CMAKE_MATCH_1}")
  endif()
  target_include_directories(${NAME}
    PUBLIC "${CMAKE_SOURCE_DIR}/${DIR}/Public" ${STANDALONE}
    PRIVATE "${CMAKE_SOURCE_DIR}/${DIR}/Private")
  target_link_libraries(${NAME} PUBLIC ${ARGN})
  # A header that was precompiled with visible symbols does not fit a module that hides its own.
  if(NOT (MORVANE_MODULAR AND DIR MATCHES "^Source/"))
    morvane_precompile(${NAME})
  endif()
endfunction()

# One header is precompiled for all who stand on the object system. Its own target holds no definitions beyond Core's:
# g++ refuses a precompiled header made with a macro that its user does not define.
if(MORVANE_CORE_PCH AND MORVANE_OBJECT_PCH)
  add_library(EditorPrecompiled OBJECT "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp")
  target_include_directories(EditorPrecompiled PRIVATE "${CMAKE_SOURCE_DIR}/Editor/CoreUObject/Public")
  target_link_libraries(EditorPrecompiled PRIVATE EditorCore)
  target_precompile_headers(EditorPrecompiled PRIVATE "${MORVANE_CORE_PCH}" "${MORVANE_OBJECT_PCH}")
endif()

# The modules beside the object system do with the vocabulary types.
function(morvane_precompile NAME)
  if(NAME MATCHES "^Editor(Core|Json|SourceControl)$")
    if(MORVANE_CORE_PCH)
      target_precompile_headers(${NAME} PRIVATE "${MORVANE_CORE_PCH}")
    endif()
  elseif(TARGET EditorPrecompiled)
    target_precompile_headers(${NAME} REUSE_FROM EditorPrecompiled)
  endif()
endfunction()
