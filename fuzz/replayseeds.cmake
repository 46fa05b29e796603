# SPDX-License-Identifier: Apache-2.0
# Run as a script with what seeds.cmake takes, -DPROGRAMS=... (their folder) and -DHARNESSES=...: has
# every harness take all seeds, those of the others too.
include(${CMAKE_CURRENT_LIST_DIR}/seeds.cmake)
file(GLOB_RECURSE seeds ${SEEDS}/*)
foreach(harness IN LISTS HARNESSES)
  execute_process(COMMAND ${PROGRAMS}/${harness}_replay ${seeds} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
