# SPDX-License-Identifier: Apache-2.0
# Two builds of the same sources give the same bytes, whatever their folders are called: the compiler
# writes paths, as in assertions and symbols for the debugger, from the root of the sources on.
# scripts/reproducible makes two such builds and compares them.

# The last option that fits a path wins.
file(RELATIVE_PATH brix_sources_from_build ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR})
foreach(folder ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${brix_sources_from_build})
  string(REGEX REPLACE "/$" "" folder ${folder})
  add_compile_options(-ffile-prefix-map=${folder}=.)
endforeach()
