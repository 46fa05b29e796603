# SPDX-License-Identifier: Apache-2.0
# What is installed: the libraries with their headers, packages for find_package(brix) and pkg-config,
# the module and the programs. Each file belongs to one of two components, which the packages are made
# of: "programs", or "development" where nothing else is said.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)

set(brix_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brix)
# All that is installed moves with the prefix, and so does what these files say.
file(RELATIVE_PATH brix_prefix_from_pkgconfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})

# brix_install_library(NAME DESCRIPTION text [REQUIRES packages] [LIBS words]): Brix::NAME, which
# becomes a component of the package brix and the package brix-NAME of pkg-config.
set(brix_libraries)
function(brix_install_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION;REQUIRES;LIBS" "")
  install(TARGETS brix_${name} EXPORT brix-${name}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brix COMPONENT development)
  install(EXPORT brix-${name} FILE brix-${name}.cmake NAMESPACE Brix::
    DESTINATION ${brix_package_dir} COMPONENT development)
  configure_file(cmake/brix.pc.in brix-${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/brix-${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
  set(brix_libraries ${brix_libraries} ${name} PARENT_SCOPE)
endfunction()

get_target_property(brix_system_libraries brix_zelbasictypes INTERFACE_LINK_LIBRARIES)
list(FILTER brix_system_libraries INCLUDE REGEX "^[a-z0-9_]+$")
list(TRANSFORM brix_system_libraries PREPEND -l)
list(JOIN brix_system_libraries " " brix_system_libraries)
brix_install_library(zelbasictypes
  DESCRIPTION "Basic types, counted objects and host access for components"
  LIBS "-L\${libdir} -lbrix-zelbasictypes -pthread ${brix_system_libraries}")
brix_install_library(interfaces
  DESCRIPTION "The interfaces between a host, its components and the import"
  REQUIRES brix-zelbasictypes)
if(WIN32)
  set(brix_exports "\${prefix}/${brix_package_dir}/component.def")
else()
  set(brix_exports "-Wl,--version-script=\${prefix}/${brix_package_dir}/component.map")
endif()
brix_install_library(component
  DESCRIPTION "The framework that makes a loadable module a component"
  REQUIRES brix-interfaces
  LIBS "-L\${libdir} -Wl,--whole-archive -lbrix-component -Wl,--no-whole-archive ${brix_exports}")
if(BRIX_WITH_QT)
  brix_install_library(protocol
    DESCRIPTION "The messages between an import client and a CAD Importer server"
    REQUIRES Qt${BRIX_QT_MAJOR}Core
    LIBS "-L\${libdir} -lbrix-protocol")
endif()

configure_package_config_file(cmake/brixConfig.cmake.in brixConfig.cmake
  INSTALL_DESTINATION ${brix_package_dir})
write_basic_package_version_file(brixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/brixConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/brixConfigVersion.cmake
  cmake/BrixComponent.cmake
  cmake/component.def
  cmake/component.map
  DESTINATION ${brix_package_dir} COMPONENT development)

if(BRIX_WITH_QT)
  install(TARGETS brix LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/brix COMPONENT programs)
endif()
if(NOT BRIX_BUILD_PROGRAMS)
  return()
endif()

# The programs find each other and the module by where they stand.
set(brix_programs brix-import direct-dump kor-dump)
if(BRIX_WITH_OPENCASCADE)
  list(APPEND brix_programs cad-importer-server brix-rebuild)
endif()
install(TARGETS ${brix_programs}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT programs)
