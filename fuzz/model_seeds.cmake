# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DGOLDEN=... -DSEEDS=...: makes a seed of each golden file, its bytes behind
# one that asks for small pieces.
find_program(XXD xxd REQUIRED)
file(MAKE_DIRECTORY ${SEEDS})
file(GLOB names ${GOLDEN}/*.hex)
foreach(name IN LISTS names)
  file(READ ${name} text)
  string(REGEX REPLACE "#[^\n]*" "" text "06 ${text}")
  get_filename_component(stem ${name} NAME_WE)
  file(WRITE ${SEEDS}/${stem}.hex "${text}")
  execute_process(COMMAND ${XXD} -r -p ${SEEDS}/${stem}.hex ${SEEDS}/${stem}.kor
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${SEEDS}/${stem}.hex)
endforeach()
