# The four kinds of target the tree is made of. A folder's CMakeLists.txt is one call of these.

# What every target of ours is compiled with; libraries from outside are not.
add_library(varn_options INTERFACE)
target_include_directories(varn_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(varn_options INTERFACE
  -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  # Pixel loops and the script machine promise the same bits on every processor.
  -ffp-contract=off
  # GCC 12 takes `"text" + std::string` for an overlapping copy when it optimises (its bug 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

# varn_library(NAME SOURCES a.cpp ... [LINK Lower ...] [PRIVATE_LINK lib ...])
function(varn_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC varn_options ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
endfunction()

# varn_test(NAME SOURCES a.cpp ... LINK Folder ...): one test program, one entry of ctest.
function(varn_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE varn_options ${ARG_LINK} TestSupport GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE VARN_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  add_test(NAME ${name} COMMAND ${name})
endfunction()

# varn_loads(NAME MODULE ...): the test program loads modules that the programs load too. An RPATH,
# since the sanitizers' dlopen does not see a program's RUNPATH.
function(varn_loads name)
  add_dependencies(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES BUILD_RPATH "$<TARGET_FILE_DIR:${ARGV1}>")
  target_link_options(${name} PRIVATE -Wl,--disable-new-dtags)
endfunction()

# The test program draws lines or text; or it plays sounds and songs.
function(varn_draws name)
  varn_loads(${name} varnraster)
endfunction()
function(varn_sounds name)
  varn_loads(${name} varnsound varnsynth)
endfunction()

# varn_fuzz(NAME LINK Folder ...): fuzz/NAME.cpp, with its seeds in fuzz/corpus/NAME; one entry of ctest,
# which runs the seeds and then FUZZ_SECONDS of new inputs.
function(varn_fuzz name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  add_executable(fuzz_${name} ${name}.cpp)
  target_link_libraries(fuzz_${name} PRIVATE varn_options ${ARG_LINK})
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  add_test(NAME fuzz_${name} COMMAND sh "${PROJECT_SOURCE_DIR}/fuzz/round.sh" $<TARGET_FILE:fuzz_${name}>
    "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name}")
endfunction()

# varn_bench(NAME SOURCES a.cpp ... LINK Folder ... )
function(varn_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE varn_options ${ARG_LINK})
endfunction()
