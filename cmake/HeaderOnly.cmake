# Libraries of Debian that are headers alone, for this machine's build and for cross builds alike. A
# cross compiler must not see the rest of /usr/include: each library's folder is linked into an
# include folder of its own. As system headers their warnings are not ours.

include_guard(GLOBAL)

# velquist_header_only(<target> <folder>): the folder of /usr/include that the headers lie in.
function(velquist_header_only target folder)
  set(headers /usr/include/${folder})
  if(NOT IS_DIRECTORY ${headers})
    message(FATAL_ERROR "${headers} is missing: run scripts/install-dependencies")
  endif()
  set(include ${PROJECT_BINARY_DIR}/header-only/${folder})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${headers} ${include}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${include})
endfunction()

velquist_header_only(velquist_cli11 CLI)
velquist_header_only(velquist_json nlohmann)
