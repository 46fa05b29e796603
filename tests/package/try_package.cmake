# SPDX-License-Identifier: Apache-2.0
# Installs the build into a folder of its own, moves that, builds the consumer against it and runs
# it. What pkg-config says has to move along.
set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${WORK})
foreach(command
    "${CMAKE_COMMAND};--install;${BUILD};--prefix;${WORK}/staged"
    "${CMAKE_COMMAND};-E;rename;${WORK}/staged;${prefix}"
    "${CMAKE_COMMAND};-G;Ninja;-S;${SOURCE};-B;${WORK}/build;-DCMAKE_PREFIX_PATH=${prefix};-DCMAKE_CXX_COMPILER=${COMPILER};-DCMAKE_CXX_FLAGS=${FLAGS}"
    "${CMAKE_COMMAND};--build;${WORK}/build"
    "${WORK}/build/consumer"
    "${prefix}/bin/brix-import;--version")
  execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(status)
    message(FATAL_ERROR "${command}: ${status}\n${output}")
  endif()
endforeach()
file(GLOB_RECURSE packages ${prefix}/*.pc)
foreach(package IN LISTS packages)
  execute_process(COMMAND pkg-config --variable=includedir ${package}
    OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT EXISTS ${folder}/zelbasictypes OR NOT folder MATCHES "^${prefix}/")
    message(FATAL_ERROR "${package} names ${folder}")
  endif()
endforeach()
