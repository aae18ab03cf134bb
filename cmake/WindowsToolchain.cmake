# Windows on 32-bit Intel, where the control and service objects of OPOS live, by mingw-w64 with POSIX threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

# Windows and foreign components call with a stack aligned to 4 bytes, SSE wants 16. SSE2 is what every supported Windows
# has; it also makes floating point the same as on the other systems.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
# One file, without libraries of the compiler beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--large-address-aware")

# Libraries come from the directory that script/windows prepares, programs from the building machine.
if(DEFINED ENV{RAVLIN_WINDOWS_PREFIX})
    set(RAVLIN_WINDOWS_PREFIX "$ENV{RAVLIN_WINDOWS_PREFIX}" CACHE PATH "What script/windows prepared")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES RAVLIN_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32 ${RAVLIN_WINDOWS_PREFIX})
set(CMAKE_PREFIX_PATH ${RAVLIN_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Its Qt has moc, uic and rcc.
execute_process(COMMAND gcc -print-multiarch OUTPUT_VARIABLE host OUTPUT_STRIP_TRAILING_WHITESPACE)
set(QT_HOST_PATH /usr CACHE PATH "Where Qt of the building machine is")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${host}/cmake CACHE PATH "Where its CMake packages are")
