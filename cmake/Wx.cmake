# Defines the target velquist_wx: the parts of wxWidgets that the window is made of.
#
# On Linux these are the system's shared libraries, found through wx-config; for Windows the
# static ones of scripts/build-windows-libraries. Either way the headers count as system headers,
# so that warnings in them are not ours.

include_guard(GLOBAL)

add_library(velquist_wx INTERFACE)

if(WIN32)
  find_package(wxWidgets 3.2 CONFIG REQUIRED COMPONENTS core base)
  target_link_libraries(velquist_wx INTERFACE wx::core wx::base)
  # Must be what the libraries were built with.
  target_compile_definitions(velquist_wx INTERFACE wxDEBUG_LEVEL=0)
else()
  find_package(wxWidgets 3.2 MODULE REQUIRED COMPONENTS core base)
  target_include_directories(velquist_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(velquist_wx INTERFACE ${wxWidgets_DEFINITIONS}
    $<$<CONFIG:Debug>:${wxWidgets_DEFINITIONS_DEBUG}>)
  target_compile_options(velquist_wx INTERFACE ${wxWidgets_CXX_FLAGS})
  target_link_directories(velquist_wx INTERFACE ${wxWidgets_LIBRARY_DIRS})
  target_link_libraries(velquist_wx INTERFACE ${wxWidgets_LIBRARIES})
endif()
