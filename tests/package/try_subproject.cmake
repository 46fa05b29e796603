# SPDX-License-Identifier: Apache-2.0
# Builds a project that takes brix in as a folder of its own.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
set(project ${CMAKE_CURRENT_LIST_DIR}/subproject)
set(nothing_else)
foreach(package CLI11 nlohmann_json OpenCASCADE PNG GTest)
  list(APPEND nothing_else -DCMAKE_DISABLE_FIND_PACKAGE_${package}=ON)
endforeach()

# With the protocol and the module, which need Qt and no more.
configure(${project} ${WORK}/qt -DBRIX_SOURCE=${SOURCE} -DBRIX_QT_MAJOR=${QT} ${nothing_else})

# Without Qt. Compiled in large pieces, for the sake of speed.
configure(${project} ${WORK}/build -DBRIX_SOURCE=${SOURCE} -DBRIX_WITH_QT=OFF ${nothing_else}
  -DCMAKE_DISABLE_FIND_PACKAGE_Qt5=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
  -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run_and_expect("rolled" ${WORK}/build/try-dice ${WORK}/build/dice.so)

run(${CMAKE_COMMAND} --install ${WORK}/build --prefix ${WORK}/prefix)
file(GLOB installed ${WORK}/prefix/*)
if(installed)
  message(FATAL_ERROR "a part of another project installed ${installed}")
endif()
