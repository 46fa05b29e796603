# SPDX-License-Identifier: Apache-2.0
# Steps of a test that is a script. Each ends it with what the command said when it goes wrong.

# run(command...)
function(run)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN}: ${status}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# run_and_expect(PATTERN command...): the output must have what the regular expression says.
function(run_and_expect pattern)
  run(${ARGN})
  if(NOT output MATCHES "${pattern}")
    message(FATAL_ERROR "${ARGN}: nothing like \"${pattern}\" in\n${output}")
  endif()
endfunction()

# fail_and_expect(PATTERN command...): the same for a command that must fail.
function(fail_and_expect pattern)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  string(REGEX REPLACE "[ \n]+" " " output "${output}")
  if(status EQUAL 0 OR NOT output MATCHES "${pattern}")
    message(FATAL_ERROR "${ARGN}: ${status}, nothing like \"${pattern}\" in\n${output}")
  endif()
endfunction()

# configure(SOURCE BUILD options...): a project, with this build's compiler and its words.
function(configure source build)
  run(${CMAKE_COMMAND} -G Ninja -S ${source} -B ${build}
    -DCMAKE_CXX_COMPILER=${COMPILER} "-DCMAKE_CXX_FLAGS=${FLAGS}" ${ARGN})
endfunction()
