# morvane_module(NAME DIR [DEPS...]): a static library from DIR/Private/**.cpp.
# DIR/Public is visible to every module above, DIR/Private to the module alone. A module may have headers only.

file(WRITE "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp.in" "// This module has no source of its own yet.\n")
configure_file("${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp.in" "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp" COPYONLY)

# Globbed, so that a header that appears later re-runs the configuration.
file(GLOB MORVANE_CORE_PCH CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Editor/Core/Public/CoreMinimal.h")
file(GLOB MORVANE_OBJECT_PCH CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Editor/CoreUObject/Public/UObject/Object.h")

function(morvane_module NAME DIR)
  file(GLOB_RECURSE SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${DIR}/Private/*.cpp")
  if(NOT SOURCES)
    set(SOURCES "${CMAKE_BINARY_DIR}/generated/HeadersOnly.cpp")
  endif()
  add_library(${NAME} STATIC ${SOURCES})
  target_include_directories(${NAME}
    PUBLIC "${CMAKE_SOURCE_DIR}/${DIR}/Public"
    PRIVATE "${CMAKE_SOURCE_DIR}/${DIR}/Private")
  target_link_libraries(${NAME} PUBLIC ${ARGN})
  morvane_precompile(${NAME})
endfunction()

# One header is precompiled for all who stand on the object system, and taken over from EditorCoreUObject by the rest;
# Core and Json stand below it, so theirs stops at the vocabulary types.
function(morvane_precompile NAME)
  if(NAME MATCHES "^Editor(Core|Json)$")
    if(MORVANE_CORE_PCH)
      target_precompile_headers(${NAME} PRIVATE "${MORVANE_CORE_PCH}")
    endif()
  elseif(NOT MORVANE_CORE_PCH OR NOT MORVANE_OBJECT_PCH)
    return()
  elseif(NAME MATCHES "^EditorCoreUObject$")
    target_precompile_headers(${NAME} PRIVATE "${MORVANE_CORE_PCH}" "${MORVANE_OBJECT_PCH}")
  else()
    target_precompile_headers(${NAME} REUSE_FROM EditorCoreUObject)
  endif()
endfunction()
