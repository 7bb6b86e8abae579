# Flags that every target of the project shares.
include_guard(GLOBAL)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(project_flags INTERFACE)
target_compile_options(project_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror -ffp-contract=off)
target_link_options(project_flags INTERFACE -Wl,-z,defs)

# Sources of one room: every .cpp below it. Globbing keeps a new file from needing an edit here.
function(room_sources out dir)
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp)
  set(${out} ${found} PARENT_SCOPE)
endfunction()
