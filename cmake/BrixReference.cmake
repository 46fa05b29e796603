# SPDX-License-Identifier: Apache-2.0
# The target `reference`: HTML pages of every public header, made by Doxygen into the build folder's
# reference/. A public name without a comment is an error.
find_package(Doxygen)
if(NOT DOXYGEN_FOUND)
  return()
endif()

set(DOXYGEN_PROJECT_BRIEF "Import of CAD models, and the basic-types library it stands on")
set(DOXYGEN_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/reference)
set(DOXYGEN_HTML_OUTPUT .)
set(DOXYGEN_STRIP_FROM_PATH ${CMAKE_CURRENT_SOURCE_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${CMAKE_CURRENT_SOURCE_DIR})
set(DOXYGEN_FILE_PATTERNS *.h)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
# The first sentence is the summary, and the comment of a group counts for each of its members.
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_DISTRIBUTE_GROUP_DOC YES)
set(DOXYGEN_SORT_MEMBER_DOCS NO)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED "Q_DECLARE_TYPEINFO(a,b)=" Q_ALWAYS_INLINE=inline)
# What each operating system does behind the portable headers, the module's own link symbol, and
# definitions that belong to the header of another name.
set(DOXYGEN_EXCLUDE platform/posix platform/windows component/module
  zelbasictypes/math/zelmatrix4_inline.h)
# Told once for all classes: interfaceName at IZelUnknown, wireName at CADImport::Message. The
# entries of operation tables that keep a place and that nobody calls have nothing to tell, nor have
# the specialisations of a trait.
set(DOXYGEN_EXCLUDE_SYMBOLS interfaceName wireName reserved*
  bigendian::Unsigned* CADImport::WireWord*)

doxygen_add_docs(reference platform component zelbasictypes cadimport
  client/itessoracadimporterclient.h client/ilivecontrol.h
  WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
  COMMENT "Making the API reference")
