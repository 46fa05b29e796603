# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DGOLDEN=... -DSEEDS=...: makes a seed of each golden file, its bytes behind
# one that asks for small pieces.
find_program(PYTHON python3 REQUIRED)
file(MAKE_DIRECTORY ${SEEDS})
file(GLOB names ${GOLDEN}/*.hex)
foreach(name IN LISTS names)
  file(READ ${name} text)
  string(REGEX REPLACE "#[^\n]*" "" text "06 ${text}")
  get_filename_component(stem ${name} NAME_WE)
  execute_process(COMMAND ${PYTHON} -c
      "import sys; open(sys.argv[1], 'wb').write(bytes.fromhex(sys.argv[2]))"
      ${SEEDS}/${stem}.kor ${text}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
