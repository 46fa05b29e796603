# SPDX-License-Identifier: Apache-2.0
# Installs the build, moves what was installed, and builds and runs the examples against it.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
run(${CMAKE_COMMAND} -E rename ${WORK}/staged ${prefix})
file(GLOB_RECURSE module ${prefix}/brix.so)

# example(NAME options...): builds the example of that name.
function(example name)
  configure(${SOURCE}/examples/${name} ${WORK}/${name} -DCMAKE_PREFIX_PATH=${prefix} ${ARGN})
  run(${CMAKE_COMMAND} --build ${WORK}/${name})
endfunction()

set(without_qt -DCMAKE_DISABLE_FIND_PACKAGE_Qt5=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
example(datafile ${without_qt})
run_and_expect("bore: 0 0 12 within 0.002" ${WORK}/datafile/example-datafile ${WORK}/points.kor)

example(component ${without_qt})
run_and_expect("dice stay in their range: passed" ${WORK}/component/try-dice ${WORK}/component/dice.so)

example(server)
set(server ${WORK}/server/example-server)
run(${server} -InputFile any -OutputBaseName ${WORK}/cube)
example(reader)
run_and_expect("plane: 6" ${WORK}/reader/example-reader ${WORK}/cube.direct)

example(host ${without_qt})
run_and_expect("shell 1 6\nend" ${WORK}/host/example-host ${module} ${server} any ${WORK}/imported)
if(EXISTS ${WORK}/imported.direct)
  message(FATAL_ERROR "the client left the model file behind")
endif()

# The reference programs work from there too, and talk to the server of the example.
run_and_expect("faces +6\n" ${prefix}/bin/brix-import ${SOURCE}/samples/bracket.step
  --live --server ${server} --output-base ${WORK}/live)

# Every header that is installed finds what it includes.
file(GLOB_RECURSE headers RELATIVE ${prefix}/include/brix ${prefix}/include/brix/*.h)
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"\n")
file(WRITE ${WORK}/headers/main.cpp ${headers} "int main() {}\n")
file(WRITE ${WORK}/headers/CMakeLists.txt "cmake_minimum_required(VERSION 3.23)
project(headers LANGUAGES CXX)
find_package(brix REQUIRED)
add_executable(headers main.cpp)
target_link_libraries(headers PRIVATE Brix::component Brix::interfaces Brix::protocol)\n")
configure(${WORK}/headers ${WORK}/headers/build -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK}/headers/build)

# Without CMake: pkg-config says what it takes, by paths that moved too.
file(GLOB_RECURSE packages ${prefix}/brix-*.pc)
list(GET packages 0 folder)
cmake_path(GET folder PARENT_PATH folder)
set(ENV{PKG_CONFIG_PATH} ${folder}:$ENV{PKG_CONFIG_PATH})
foreach(package IN ITEMS zelbasictypes interfaces component protocol)
  run_and_expect("-I${prefix}/" pkg-config --cflags brix-${package})
endforeach()
run(sh -c "${COMPILER} ${FLAGS} -shared -fPIC -fvisibility=hidden -o ${WORK}/dice.so \
  ${SOURCE}/examples/component/dice.cpp $(pkg-config --cflags --libs brix-component)")
run_and_expect("rolled" ${WORK}/component/try-dice ${WORK}/dice.so)

# Who uses the other Qt is told so.
file(WRITE ${WORK}/otherqt/CMakeLists.txt "cmake_minimum_required(VERSION 3.23)
project(otherqt LANGUAGES CXX)
add_library(Qt${OTHER_QT}::Core INTERFACE IMPORTED)
find_package(brix REQUIRED COMPONENTS protocol)\n")
fail_and_expect("built for Qt ${QT}, +while this project uses Qt ${OTHER_QT}"
  ${CMAKE_COMMAND} -G Ninja -S ${WORK}/otherqt -B ${WORK}/otherqt/build
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${COMPILER})
