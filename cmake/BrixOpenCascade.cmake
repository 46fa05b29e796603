# SPDX-License-Identifier: Apache-2.0
# Linking against Open CASCADE by library, not by its exported targets: those name the development
# files of what the kernel itself was built with, which a machine that only uses it need not have.

# brix_link_opencascade(TARGET TKMath TKBRep ...): the libraries whose symbols the target uses.
function(brix_link_opencascade target)
  target_include_directories(${target} SYSTEM PUBLIC ${OpenCASCADE_INCLUDE_DIR})
  foreach(toolkit IN LISTS ARGN)
    find_library(BRIX_${toolkit} NAMES ${toolkit} HINTS ${OpenCASCADE_LIBRARY_DIR} REQUIRED)
    mark_as_advanced(BRIX_${toolkit})
    target_link_libraries(${target} PUBLIC ${BRIX_${toolkit}})
  endforeach()
endfunction()
