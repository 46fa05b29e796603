# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DSEEDER=... (decode_seeds) -DSOURCE=... (this folder) -DSEEDS=...: makes the
# seeds that aren't kept as files, and puts those of corpus/ beside them. A data-model file is a
# golden one, its bytes behind one that asks for small pieces.
file(REMOVE_RECURSE ${SEEDS})
file(COPY ${SOURCE}/corpus/ DESTINATION ${SEEDS})
foreach(name decode creator)
  execute_process(COMMAND ${SEEDER} ${SEEDS}/${name} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

find_program(PYTHON python3 REQUIRED)
set(prefixed "import sys; open(sys.argv[1], 'wb').write(b'\\6' + open(sys.argv[2], 'rb').read())")
execute_process(COMMAND ${PYTHON} -c ${prefixed} ${SEEDS}/creator/bracket
    ${SOURCE}/../tests/apps/golden/bracket.direct
  COMMAND_ERROR_IS_FATAL ANY)
file(GLOB names ${SOURCE}/../tests/zelbasictypes/golden/*.hex)
foreach(name IN LISTS names)
  file(READ ${name} text)
  string(REGEX REPLACE "#[^\n]*" "" text "06 ${text}")
  get_filename_component(stem ${name} NAME_WE)
  foreach(harness model string)
    file(MAKE_DIRECTORY ${SEEDS}/${harness})
    execute_process(COMMAND ${PYTHON} -c
        "import sys; open(sys.argv[1], 'wb').write(bytes.fromhex(sys.argv[2]))"
        ${SEEDS}/${harness}/${stem} ${text}
      COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endforeach()
