# Cross compiler of Debian: GCC for Windows x64 with POSIX threads. The win32 thread variant lacks std::thread.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_RC_FLAGS_INIT "-c 65001")

# An inline function or template has a copy in each object that uses it, and the linker keeps one of them.
# On Windows GCC takes the copy of the object at hand for the one that is called, and keeps values in
# registers that this copy leaves alone but the kept one may not.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-ipa-ra>)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
