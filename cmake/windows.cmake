# How to build for Windows on Debian; to be given with "--toolchain".
# The libraries that scripts/windows-libraries.sh made are found where -DCMAKE_FIND_ROOT_PATH names
# their folders.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Tools are this machine's own, all that is compiled and linked comes from there.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's own libraries become part of each program, so that it needs none but the system's.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
# The PDF library is an archive here; what it needs itself is to be named.
set(NORVIK_HPDF_NEEDS z CACHE STRING "Libraries that the PDF library needs, where it is an archive")
