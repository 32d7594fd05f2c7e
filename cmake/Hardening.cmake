# What makes a program that ships hard to take over by a file that is not what it says. Only the
# configuration that ships has it; scripts/check-hardening reads it in the files that were built.
# The compiler for Windows has no control-flow guard.

include_guard(GLOBAL)

set(protected $<CONFIG:Release>)
target_compile_options(velquist_options INTERFACE "$<${protected}:-fstack-protector-strong>")
target_link_options(velquist_options INTERFACE "$<${protected}:-fstack-protector-strong>")
if(WIN32)
  target_link_options(velquist_options INTERFACE
    "$<${protected}:-Wl,--dynamicbase,--high-entropy-va,--nxcompat>")
else()
  target_compile_options(velquist_options INTERFACE
    "$<${protected}:-fPIE;-D_FORTIFY_SOURCE=2;-fstack-clash-protection>")
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|i[3-6]86)$")
    target_compile_options(velquist_options INTERFACE "$<${protected}:-fcf-protection=full>")
  endif()
  target_link_options(velquist_options INTERFACE
    "$<${protected}:-pie;-Wl,-z,relro,-z,now,-z,noexecstack>")
endif()
