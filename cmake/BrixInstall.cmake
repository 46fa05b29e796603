# SPDX-License-Identifier: Apache-2.0
# What is installed: the libraries with their headers and a package for find_package(brix), the
# module, the programs, and a manual page for each, made from its --help.
include(CMakePackageConfigHelpers)

set(brix_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brix)

install(TARGETS brix_zelbasictypes brix_protocol EXPORT brixTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT brixTargets NAMESPACE Brix:: DESTINATION ${brix_package_dir})
configure_package_config_file(cmake/brixConfig.cmake.in brixConfig.cmake
  INSTALL_DESTINATION ${brix_package_dir})
write_basic_package_version_file(brixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/brixConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/brixConfigVersion.cmake
  DESTINATION ${brix_package_dir})

# The files move with the prefix, and so does what they say.
file(RELATIVE_PATH brix_prefix_from_pkgconfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(package brix-zelbasictypes brix-protocol)
  configure_file(cmake/${package}.pc.in ${package}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

install(DIRECTORY platform component zelbasictypes cadimport client
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brix
  FILES_MATCHING PATTERN "*.h"
  PATTERN "platform/posix" EXCLUDE
  PATTERN "platform/windows" EXCLUDE)

install(TARGETS brix LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/brix)
# The programs find each other and the module by where they stand.
set(brix_programs brix-import direct-dump kor-dump)
if(BRIX_WITH_OPENCASCADE)
  list(APPEND brix_programs cad-importer-server brix-rebuild)
endif()
install(TARGETS ${brix_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

find_program(HELP2MAN help2man)
if(HELP2MAN)
  foreach(program ${brix_programs})
    add_custom_command(OUTPUT ${program}.1
      COMMAND ${HELP2MAN} --no-info --no-discard-stderr --output=${program}.1 $<TARGET_FILE:${program}>
      DEPENDS ${program}
      VERBATIM)
    list(APPEND brix_manual_pages ${CMAKE_CURRENT_BINARY_DIR}/${program}.1)
  endforeach()
  add_custom_target(brix-manual ALL DEPENDS ${brix_manual_pages})
  install(FILES ${brix_manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
