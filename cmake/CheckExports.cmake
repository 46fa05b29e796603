# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DNM=... -DMODULE=...: fails unless the module shows EntryPoint and the members
# of the class brix (constructor and destructor twice, as the compiler makes them), and no more.
execute_process(COMMAND ${NM} -D --defined-only -C ${MODULE}
  OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${listing}")
set(symbols)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^[0-9a-f]+ . " "" symbol "${line}")
  list(APPEND symbols "${symbol}")
endforeach()
list(SORT symbols)
set(expected "EntryPoint" "brix::brix()" "brix::brix()" "brix::operator=(brix const&)"
  "brix::~brix()" "brix::~brix()")
if(NOT symbols STREQUAL expected)
  message(FATAL_ERROR "${MODULE} shows:\n${listing}")
endif()
