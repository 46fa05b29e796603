# SPDX-License-Identifier: Apache-2.0
# Run as a script with -DPATHS=... and -DFILES=...: fails if one of the files names one of the paths.
foreach(file IN LISTS FILES)
  foreach(path IN LISTS PATHS)
    string(REGEX REPLACE "([][+.*?^$()|])" "\\\\\\1" pattern ${path})
    file(STRINGS ${file} found REGEX "${pattern}")
    if(found)
      message(SEND_ERROR "${file} names a path of this machine: ${found}")
    endif()
  endforeach()
endforeach()
