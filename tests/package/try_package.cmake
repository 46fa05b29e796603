# SPDX-License-Identifier: Apache-2.0
# Installs the build into a folder of its own, builds the consumer against it and runs it.
set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${WORK})
foreach(command
    "${CMAKE_COMMAND};--install;${BUILD};--prefix;${prefix}"
    "${CMAKE_COMMAND};-G;Ninja;-S;${SOURCE};-B;${WORK}/build;-DCMAKE_PREFIX_PATH=${prefix};-DCMAKE_CXX_COMPILER=${COMPILER};-DCMAKE_CXX_FLAGS=${FLAGS}"
    "${CMAKE_COMMAND};--build;${WORK}/build"
    "${WORK}/build/consumer"
    "${prefix}/bin/brix-import;--version")
  execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(status)
    message(FATAL_ERROR "${command}: ${status}\n${output}")
  endif()
endforeach()
