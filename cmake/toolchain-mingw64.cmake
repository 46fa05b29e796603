# SPDX-License-Identifier: Apache-2.0
# 64-bit Windows by Debian's g++-mingw-w64-x86-64-posix. Programs are linked whole, so that they run
# wherever they are copied.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# What this machine has for itself, /usr/lib and /usr/include, is never the target's.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The compiler takes inline functions for its own here and trusts them with registers, but the linker
# may take the copy of another file, made with other options, Qt's for one. The words that Qt asks of
# its users go to everybody, since all share headers that were compiled once.
set(CMAKE_C_FLAGS_INIT "-fno-ipa-ra")
set(CMAKE_CXX_FLAGS_INIT "-fno-ipa-ra -DUNICODE -D_UNICODE -DWIN32 -DWIN64 -D_WIN64 -DMINGW_HAS_SECURE_API=1 -D_ENABLE_EXTENDED_ALIGNED_STORAGE")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
