# SPDX-License-Identifier: Apache-2.0
# A loadable module as the host expects it: its own name without a prefix, and nothing exported but
# EntryPoint and the members of the class brix.

# brix_exported_sources(sources...): sources of this folder whose functions a module may export.
function(brix_exported_sources)
  if(NOT WIN32)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -fvisibility=default)
  endif()
endfunction()

# brix_module(TARGET): for a target made by add_library(... MODULE ...), which links
# brix_componententry and an identity directly.
function(brix_module target)
  set_target_properties(${target} PROPERTIES PREFIX "")
  if(NOT CMAKE_LIBRARY_OUTPUT_DIRECTORY AND CMAKE_RUNTIME_OUTPUT_DIRECTORY)
    set_target_properties(${target} PROPERTIES
      LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  endif()
  if(WIN32)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/brix.def)
  else()
    target_link_options(${target} PRIVATE
      LINKER:--version-script=${CMAKE_CURRENT_FUNCTION_LIST_DIR}/brix.map)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/brix.map)
  endif()
endfunction()

# brix_test_exports(TARGET): the test that the built module shows what it should and no more.
function(brix_test_exports target)
  if(WIN32)
    set(lister -DOBJDUMP=${CMAKE_OBJDUMP})
  else()
    set(lister -DNM=${CMAKE_NM})
  endif()
  add_test(NAME ${target}.ShowsNothingButItsEntryPoint COMMAND ${CMAKE_COMMAND}
    ${lister} -DMODULE=$<TARGET_FILE:${target}>
    -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/CheckExports.cmake)
endfunction()
