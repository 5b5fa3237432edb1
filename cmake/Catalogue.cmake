# Packs Catalogue/*.jsonl into one image at build time and links it into EditorCoreUObject as read-only data.

enable_language(ASM)

set(CATALOGUE_CODE "${CMAKE_SOURCE_DIR}/Editor/CoreUObject")
# The reader of the files is shared with the loader of project catalogues; the tool needs no editor module.
add_executable(CompileCatalogue
  "${CATALOGUE_CODE}/Tools/CompileCatalogue.cpp"
  "${CATALOGUE_CODE}/Private/Catalogue/CatalogueBuilder.cpp"
  "${CATALOGUE_CODE}/Private/Catalogue/CatalogueFields.cpp"
  "${CATALOGUE_CODE}/Private/Catalogue/CatalogueParser.cpp"
  "${CATALOGUE_CODE}/Private/Catalogue/CatalogueTypes.cpp")
target_include_directories(CompileCatalogue PRIVATE "${CATALOGUE_CODE}/Private")
target_link_libraries(CompileCatalogue PRIVATE simdjson::simdjson)

file(GLOB CATALOGUE_FILES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/Catalogue/*.jsonl")
set(CATALOGUE_IMAGE "${CMAKE_BINARY_DIR}/generated/Catalogue.bin")
add_custom_command(
  OUTPUT "${CATALOGUE_IMAGE}"
  COMMAND CompileCatalogue "${CATALOGUE_IMAGE}" ${CATALOGUE_FILES}
  DEPENDS CompileCatalogue ${CATALOGUE_FILES}
  COMMENT "Packing the class catalogue"
  VERBATIM)

# The engine's own assets stand in a list of their own, which is read as it is.
set(ENGINE_CONTENT "${CMAKE_SOURCE_DIR}/Catalogue/EngineContent.txt")

# Assembler, not C++: a compiler cache cannot see what .incbin reads.
set(CATALOGUE_OBJECT "${CMAKE_BINARY_DIR}/generated/Catalogue.S")
file(CONFIGURE OUTPUT "${CATALOGUE_OBJECT}" CONTENT [[
	.section .rodata
	.balign 16
	.globl MorvaneCatalogueBegin
	.globl MorvaneCatalogueEnd
MorvaneCatalogueBegin:
	.incbin "@CATALOGUE_IMAGE@"
MorvaneCatalogueEnd:
	.byte 0
	.globl MorvaneEngineContentBegin
	.globl MorvaneEngineContentEnd
MorvaneEngineContentBegin:
	.incbin "@ENGINE_CONTENT@"
MorvaneEngineContentEnd:
	.byte 0
	.section .note.GNU-stack,"",%progbits
]] @ONLY)
set_source_files_properties("${CATALOGUE_OBJECT}" PROPERTIES OBJECT_DEPENDS "${CATALOGUE_IMAGE};${ENGINE_CONTENT}")
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  set_source_files_properties("${CATALOGUE_OBJECT}" PROPERTIES COMPILE_OPTIONS "-Wno-unused-command-line-argument")
endif()
target_sources(EditorCoreUObject PRIVATE "${CATALOGUE_OBJECT}")
target_link_libraries(EditorCoreUObject PRIVATE simdjson::simdjson)
