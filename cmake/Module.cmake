# morvane_module(NAME DIR [DEPS...]): a static library from DIR/Private/**.cpp.
# DIR/Public holds the headers that the engine has too, DIR/Standalone those that only this editor has: both are visible to
# every module above. DIR/Private is visible to the module alone. A module may have headers only.

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
  # Its headers are included by their folder: "Standalone/ObjectText.h".
  file(GLOB STANDALONE CONFIGURE_DEPENDS LIST_DIRECTORIES true "${CMAKE_SOURCE_DIR}/${DIR}/Standalone")
  if(STANDALONE)
    set(STANDALONE "${CMAKE_SOURCE_DIR}/${DIR}")
  endif()
  add_library(${NAME} STATIC ${SOURCES})
  target_include_directories(${NAME}
    PUBLIC "${CMAKE_SOURCE_DIR}/${DIR}/Public" ${STANDALONE}
    PRIVATE "${CMAKE_SOURCE_DIR}/${DIR}/Private")
  target_link_libraries(${NAME} PUBLIC ${ARGN})
  morvane_precompile(${NAME})
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
