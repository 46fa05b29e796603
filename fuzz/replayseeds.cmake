# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DPROGRAMS=... (their folder) -DGOLDEN=... -DSEEDS=...: makes the seeds of
# decode_fuzz and of model_fuzz and has every harness take all of them.
file(REMOVE_RECURSE ${SEEDS})
execute_process(COMMAND ${PROGRAMS}/decode_seeds ${SEEDS} COMMAND_ERROR_IS_FATAL ANY)
include(${CMAKE_CURRENT_LIST_DIR}/model_seeds.cmake)
file(GLOB seeds ${SEEDS}/*)
foreach(harness decode text model sets)
  execute_process(COMMAND ${PROGRAMS}/${harness}_replay ${seeds} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
