# Cross-compiles for 64-bit Windows with mingw-w64 (POSIX threads), everything linked statically.
#
# The static libraries are those of scripts/build-windows-libraries. Their prefix is asked of
# that script; -DVELQUIST_WINDOWS_LIBRARIES=<prefix> or an environment variable of that name
# overrides it. Once configured it stays; scripts/build-windows configures anew when it changes.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(velquist_host x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${velquist_host}-gcc-posix)
set(CMAKE_CXX_COMPILER ${velquist_host}-g++-posix)
set(CMAKE_RC_COMPILER ${velquist_host}-windres)

if(NOT VELQUIST_WINDOWS_LIBRARIES)
  if(DEFINED ENV{VELQUIST_WINDOWS_LIBRARIES})
    set(VELQUIST_WINDOWS_LIBRARIES "$ENV{VELQUIST_WINDOWS_LIBRARIES}")
  else()
    execute_process(
      COMMAND ${CMAKE_CURRENT_LIST_DIR}/../scripts/build-windows-libraries --print
      OUTPUT_VARIABLE VELQUIST_WINDOWS_LIBRARIES
      OUTPUT_STRIP_TRAILING_WHITESPACE
      RESULT_VARIABLE velquist_result)
    if(NOT velquist_result EQUAL 0)
      message(FATAL_ERROR "The Windows libraries are not built: run scripts/build-windows-libraries")
    endif()
  endif()
endif()
set(VELQUIST_WINDOWS_LIBRARIES "${VELQUIST_WINDOWS_LIBRARIES}" CACHE PATH
    "Prefix of the static libraries for Windows")
# Small checks that the compiler is tried with read this file anew, without the cache.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VELQUIST_WINDOWS_LIBRARIES)

set(CMAKE_FIND_ROOT_PATH "${VELQUIST_WINDOWS_LIBRARIES}" /usr/${velquist_host})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One file that needs nothing but Windows 10 or newer: no runtime libraries beside it. The same
# sources make the same file at any time.
set(CMAKE_EXE_LINKER_FLAGS_INIT
  "-static -Wl,--gc-sections,--no-insert-timestamp,--major-os-version=10,--minor-os-version=0,--major-subsystem-version=10,--minor-subsystem-version=0")
set(CMAKE_EXE_LINKER_FLAGS_RELEASE_INIT "-s")
