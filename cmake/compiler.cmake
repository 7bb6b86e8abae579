# Flags that every target of the project shares.
include_guard(GLOBAL)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(project_flags INTERFACE)
target_compile_options(project_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual -ffp-contract=off
  $<$<BOOL:${BLOCKCOMMON_WERROR}>:-Werror>)
# GCC 12 sees overlapping copies in ordinary concatenations of std::string (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(project_flags INTERFACE -Wno-restrict)
endif()

# Sanitizers must reach every target alike, the tests and their libraries included.
if(BLOCKCOMMON_SANITIZE)
  add_compile_options(-fsanitize=${BLOCKCOMMON_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BLOCKCOMMON_SANITIZE})
endif()

# A library names everything it needs. Clang links the sanitizer run-time into programs only, so there it cannot.
if(NOT (BLOCKCOMMON_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang"))
  target_link_options(project_flags INTERFACE -Wl,-z,defs)
endif()

if(BLOCKCOMMON_FAST_LINKER)
  find_program(FAST_LINKER NAMES ld.mold ld.lld)
  if(FAST_LINKER)
    get_filename_component(fast_linker_name ${FAST_LINKER} EXT)
    string(SUBSTRING ${fast_linker_name} 1 -1 fast_linker_name)
    add_link_options(-fuse-ld=${fast_linker_name})
  endif()
endif()

# Most of the time of compiling goes into standard headers. A batch reads them once for several sources; it is compiled
# whole after a change, so it is no larger than what a person waits for.
set(unity_batch_size 8)

# compile_in_batches(TARGET [SOURCE...]): the sources named are compiled alone all the same.
function(compile_in_batches target)
  if(BLOCKCOMMON_UNITY)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${unity_batch_size})
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()

# Sources of one module: every .cpp below it. Globbing keeps a new file from needing an edit here.
function(module_sources out dir)
  file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp)
  set(${out} ${found} PARENT_SCOPE)
endfunction()
