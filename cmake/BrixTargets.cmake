# SPDX-License-Identifier: Apache-2.0
# What every target of the project has in common, and the helpers that the folders use.

# brix_defaults(TARGET): language level, warnings, visibility and the include root.
function(brix_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/brix>)
  # Files that are compiled together may have names of their own that are alike.
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>
    $<$<BOOL:${BRIX_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# brix_public_library(TARGET): for a library that others link. It is brix_NAME inside the project,
# Brix::NAME for its users, and its archive libbrix-NAME.a.
function(brix_public_library target)
  string(REGEX REPLACE "^brix_" "" name ${target})
  add_library(Brix::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  get_target_property(type ${target} TYPE)
  if(NOT type STREQUAL INTERFACE_LIBRARY)
    set_target_properties(${target} PROPERTIES OUTPUT_NAME brix-${name})
  endif()
endfunction()

# brix_public_headers(TARGET headers...): headers of this folder that are installed with the library.
function(brix_public_headers target)
  get_target_property(type ${target} TYPE)
  set(scope PUBLIC)
  if(type STREQUAL INTERFACE_LIBRARY)
    set(scope INTERFACE)
  endif()
  target_sources(${target} ${scope}
    FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARGN})
endfunction()

# brix_add_import_module(NAME libraries...): a component with the identity of the import module. It
# shows the class brix beside EntryPoint. The libraries are named one by one: the objects of an object
# library don't pass through others.
function(brix_add_import_module name)
  brix_add_component(NAME ${name} EXPORTS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/brix)
  brix_defaults(${name})
  target_link_libraries(${name} PRIVATE brix_identity ${ARGN})
  if(NOT CMAKE_LIBRARY_OUTPUT_DIRECTORY AND CMAKE_RUNTIME_OUTPUT_DIRECTORY)
    set_target_properties(${name} PROPERTIES
      LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
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

# brix_test(NAME SOURCES... LIBS libraries...): one GoogleTest program. With the basic library comes a
# heap that scripts/inject-faults can tell to refuse.
function(brix_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  brix_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gtest GTest::gtest_main)
  brix_test_compilation(${name})
  target_precompile_headers(${name} REUSE_FROM testheaders)
  if(brix_zelbasictypes IN_LIST arg_LIBS OR brix_component IN_LIST arg_LIBS
      OR brix_host IN_LIST arg_LIBS)
    target_link_libraries(${name} PRIVATE faultyheap-program)
  endif()
  brix_print_messages(${name})
  brix_register_test(${name} 120)
endfunction()

# brix_test_compilation(TARGET): compiled as all tests are, so that they can share what is compiled of
# their headers. Quickly rather than well, since they run once, while what they test is optimised; and
# with the kind of position independence that Qt asks for. GCC takes the standard library's strings for
# the tests' own code once they come compiled, and finds fault with them.
function(brix_test_compilation target)
  target_compile_options(${target} PRIVATE
    $<$<CONFIG:RelWithDebInfo>:-O1> $<$<BOOL:${UNIX}>:-fPIC>
    $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow>)
endfunction()

# brix_print_messages(TARGET): on Windows, messages to the user are printed, where nobody is there to
# read them away; elsewhere they are anyway.
function(brix_print_messages target)
  if(WIN32)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/printedmessage.cpp)
  endif()
endfunction()

# brix_register_test(NAME SECONDS): each case of the GoogleTest program NAME as a test. In a cross
# build the program as one test, since a start by the emulator is dear; it leaves an account of its
# cases in results/NAME.xml. Under the leak sanitizer, leaks of foreign libraries don't count.
function(brix_register_test name seconds)
  if(CMAKE_CROSSCOMPILING)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/results)
    add_test(NAME ${name} COMMAND ${name} --gtest_output=xml:${name}.xml
      WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/results)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    return()
  endif()
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT ${seconds}
    ENVIRONMENT "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks.txt:print_suppressions=0")
endfunction()

# brix_lock_traces(NAME): for a program whose tests look into frame traces. Windows has one place for
# all of them, so that no two such programs can run at a time there.
function(brix_lock_traces name)
  if(CMAKE_CROSSCOMPILING)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK frame-traces)
  endif()
endfunction()
