# How a folder of sources becomes a target. All have the same warnings.

add_library(slate_options INTERFACE)
target_include_directories(slate_options INTERFACE ${PROJECT_SOURCE_DIR}/Source)
target_compile_options(slate_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion)
if(SLATE_WERROR)
  target_compile_options(slate_options INTERFACE -Werror)
endif()
if(SLATE_SANITIZE)
  target_compile_options(slate_options INTERFACE -fsanitize=${SLATE_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(slate_options INTERFACE -fsanitize=${SLATE_SANITIZE})
  # Instrumented standard templates make gcc see uninitialised members where there are none.
  target_compile_options(slate_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
# Nothing here throws; the ways out that exceptions would take count as branches that no test can reach.
if(SLATE_COVERAGE)
  target_compile_options(slate_options INTERFACE --coverage -fno-exceptions)
  target_link_options(slate_options INTERFACE --coverage)
endif()

# The objects of a library carry both forms, so that the many test programs, which gain nothing, link the ordinary one.
# Array sizes are counts held as ints; seen across files, gcc imagines negative ones.
if(SLATE_LTO)
  set(SLATE_LIBRARY_OPTIONS -flto=auto -ffat-lto-objects -Wno-alloc-size-larger-than)
  set(SLATE_PROGRAM_LINK_OPTIONS -flto=auto -O3 -Wno-alloc-size-larger-than)
  set(SLATE_TEST_LINK_OPTIONS -fno-lto)
endif()

# slate_folder(name SOURCES file... LINKS target...): one static library for one folder; LINKS names the floors below.
function(slate_folder name)
  cmake_parse_arguments(FOLDER "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${FOLDER_SOURCES})
  target_link_libraries(${name} PUBLIC slate_options ${FOLDER_LINKS})
  target_compile_options(${name} PRIVATE ${SLATE_LIBRARY_OPTIONS})
endfunction()

# slate_program(name LIBRARY): a program for users, of main.cpp and a library.
function(slate_program name library)
  add_executable(${name} main.cpp)
  target_link_libraries(${name} PRIVATE ${library})
  target_link_options(${name} PRIVATE ${SLATE_PROGRAM_LINK_OPTIONS})
  install(TARGETS ${name})
endfunction()

# slate_test(name SOURCES file... LINKS target...): one GoogleTest program, its cases listed for CTest.
function(slate_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/Tests)
  target_link_libraries(${name} PRIVATE ${TEST_LINKS} GTest::gtest_main)
  target_link_options(${name} PRIVATE ${SLATE_TEST_LINK_OPTIONS})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
