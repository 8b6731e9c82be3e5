# Windows programs built on another system. The compilers are those with POSIX threads, which the
# tests' standard library wants; the driver starts none.
set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${KORAXDR_MINGW})
set(CMAKE_C_COMPILER ${KORAXDR_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KORAXDR_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${KORAXDR_MINGW}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${KORAXDR_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
