# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DMODULE=... and one of -DNM=... and -DOBJDUMP=..., the latter for Windows: fails
# unless the module shows EntryPoint and the members of the class brix (constructor and destructor
# twice, as the compiler makes them), and no more.
if(OBJDUMP)
  execute_process(COMMAND ${OBJDUMP} -p ${MODULE}
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^.*\\[Ordinal/Name Pointer\\] Table" "" listing "${listing}")
  string(REGEX MATCHALL "\n\t\\[ *[0-9]+\\][^\n]*" lines "${listing}")
else()
  execute_process(COMMAND ${NM} -D --defined-only ${MODULE}
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+" lines "${listing}")
endif()
set(symbols)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^.* " "" symbol "${line}")
  list(APPEND symbols "${symbol}")
endforeach()
list(SORT symbols)
set(expected EntryPoint _ZN4brixC1Ev _ZN4brixC2Ev _ZN4brixD1Ev _ZN4brixD2Ev _ZN4brixaSERKS_)
if(NOT symbols STREQUAL expected)
  list(JOIN symbols "\n" listing)
  message(FATAL_ERROR "${MODULE} shows:\n${listing}")
endif()
