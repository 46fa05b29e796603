# SPDX-License-Identifier: Apache-2.0
# Run as a script with what seeds.cmake takes, -DPROGRAMS=... (their folder) and -DHARNESSES=...: has
# every harness take its seeds.
include(${CMAKE_CURRENT_LIST_DIR}/seeds.cmake)
foreach(harness IN LISTS HARNESSES)
  file(GLOB seeds ${SEEDS}/${harness}/*)
  if(NOT seeds)
    message(FATAL_ERROR "${harness} has no seeds")
  endif()
  execute_process(COMMAND ${PROGRAMS}/${harness}_replay ${seeds} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
