# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DPROGRAMS=... (their folder) -DGOLDEN=... -DSEEDS=...: makes the seeds of
# decode_fuzz and has every harness take them, and the golden files as they stand.
file(REMOVE_RECURSE ${SEEDS})
execute_process(COMMAND ${PROGRAMS}/decode_seeds ${SEEDS} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB seeds ${SEEDS}/* ${GOLDEN}/*.hex)
foreach(harness decode text model sets)
  execute_process(COMMAND ${PROGRAMS}/${harness}_replay ${seeds} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
