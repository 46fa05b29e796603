# SPDX-License-Identifier: Apache-2.0
# For projects that make components, this one included.

# brix_link_component(TARGET): links the component framework whole. Nothing in a module names
# EntryPoint or the classes that register themselves at static initialisation, so that the linker
# would leave them out of what it takes of an archive. That the archive comes again among the
# libraries does no harm: by then nothing of it is missing.
function(brix_link_component target)
  target_link_libraries(${target} PRIVATE Brix::component)
  target_link_options(${target} PRIVATE
    LINKER:--whole-archive,$<TARGET_FILE:Brix::component>,--no-whole-archive)
endfunction()

# brix_add_component(NAME name [SOURCES files...] [EXPORTS base]): a loadable module as a host
# expects it: named NAME without a prefix, with the framework inside, and showing nothing but
# EntryPoint. EXPORTS names another list of what it shows, base.map for ELF systems and base.def for
# Windows. What else the module needs is linked to the target NAME as usual.
function(brix_add_component)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;EXPORTS" "SOURCES")
  if(NOT arg_NAME OR arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "brix_add_component(NAME name [SOURCES files...] [EXPORTS base])")
  endif()
  if(NOT arg_EXPORTS)
    set(arg_EXPORTS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/component)
  endif()
  add_library(${arg_NAME} MODULE ${arg_SOURCES})
  set_target_properties(${arg_NAME} PROPERTIES
    PREFIX ""
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  brix_link_component(${arg_NAME})
  if(WIN32)
    target_sources(${arg_NAME} PRIVATE ${arg_EXPORTS}.def)
  else()
    target_link_options(${arg_NAME} PRIVATE LINKER:--version-script=${arg_EXPORTS}.map)
    set_property(TARGET ${arg_NAME} APPEND PROPERTY LINK_DEPENDS ${arg_EXPORTS}.map)
  endif()
endfunction()
