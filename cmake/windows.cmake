# The distribution's cross compiler for Windows: the set with the threads that the standard library speaks of. Libraries
# are looked for in its own folder and in MORVEX_BIBLIOTECAS, where scripts/windows_bibliotecas has put them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(conjunto x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${conjunto}-gcc-posix)
set(CMAKE_CXX_COMPILER ${conjunto}-g++-posix)
set(CMAKE_RC_COMPILER ${conjunto}-windres)

# Programs are those of this machine; headers and libraries are never.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MORVEX_BIBLIOTECAS)
set(CMAKE_FIND_ROOT_PATH /usr/${conjunto} ${MORVEX_BIBLIOTECAS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
