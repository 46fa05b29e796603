# SPDX-License-Identifier: Apache-2.0
# What the project needs beside Qt and Open CASCADE, in a build for this machine by its packages, in a
# cross build by their headers and sources: those are for any system, but they stand among headers
# that are for this one only.

# brix_find_headers(PACKAGE TARGET FOLDER): the header-only package, whose headers are all in FOLDER,
# as the imported TARGET.
function(brix_find_headers package target folder)
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(${package} REQUIRED GLOBAL)
    return()
  endif()
  if(TARGET ${target})
    return()
  endif()
  find_path(BRIX_${package}_HEADERS ${folder} PATHS /usr/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  mark_as_advanced(BRIX_${package}_HEADERS)
  set(alone ${PROJECT_BINARY_DIR}/headers/${package})
  file(MAKE_DIRECTORY ${alone})
  file(CREATE_LINK ${BRIX_${package}_HEADERS}/${folder} ${alone}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${alone})
endfunction()

# brix_find_googletest(): GTest::gtest and GTest::gtest_main.
function(brix_find_googletest)
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(GTest REQUIRED GLOBAL)
    return()
  endif()
  set(BUILD_GMOCK OFF)
  set(INSTALL_GTEST OFF)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(CMAKE_WARN_DEPRECATED OFF)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endfunction()
