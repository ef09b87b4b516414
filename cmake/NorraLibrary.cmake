# What every target of this project is compiled with.
add_library(norra_options INTERFACE)
target_include_directories(norra_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(norra_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
# With optimisation g++ 12 sees these two in the standard library's own strings and optionals, where they are not.
target_compile_options(norra_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-maybe-uninitialized>)

# norra_library(NAME SOURCES... LINKS libraries...): one folder, one library. It links only what it may know.
function(norra_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC norra_options ${ARG_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE norra_options ${ARG_LINKS})
  endif()
endfunction()

function(norra_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_compile_definitions(${name} PRIVATE NORRA_VERSION="${PROJECT_VERSION}")
  target_link_libraries(${name} PRIVATE norra_options ${ARG_LINKS})
endfunction()
