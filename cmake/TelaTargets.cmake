# The three kinds of target that the project has. Each takes the sources of its own folder, so that
# adding a unit needs no line here or in a CMakeLists.txt.

find_program(TELA_CCACHE ccache)
if(TELA_CCACHE)
  # Paths are kept relative, so that another clone finds what this one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
      CCACHE_NOHASHDIR=1 "${TELA_CCACHE}")
endif()

# The programs of the tests are many, and a quick linker makes each in a fraction of the time.
find_program(TELA_MOLD mold)
if(TELA_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

add_library(tela_options INTERFACE)
target_compile_options(tela_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # When it optimizes, GCC 12 takes a literal + std::string for a copy onto itself (its bug 105651).
  target_compile_options(tela_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
endif()
target_include_directories(tela_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(TELA_SANITIZE)
  # A report names the line, for which lines alone are enough.
  target_compile_options(tela_options INTERFACE -fsanitize=address,undefined
                         -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_link_options(tela_options INTERFACE -fsanitize=address,undefined)
endif()

if(TELA_FUZZ)
  target_compile_options(tela_options INTERFACE -fsanitize=fuzzer-no-link -O1)
endif()

# tela_library(NAME [libraries it uses...]): a static library of this folder's *.cpp files.
function(tela_library name)
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PUBLIC tela_options ${ARGN})
endfunction()

# tela_program(NAME [libraries...]): an executable of this folder's *.cpp files.
function(tela_program name)
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE tela_options ${ARGN})
endfunction()

# tela_test(NAME [libraries...]): a GoogleTest program of this folder's *.cpp files; each case is a CTest,
# or the whole of it under the sanitizers.
function(tela_test name)
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE tela_options tela_source_folder ${ARGN} GTest::gtest_main
                                        GTest::gmock)
  if(TELA_SANITIZE)
    # A process a case would spend its time on starting.
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 1200)
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
  endif()
endfunction()
