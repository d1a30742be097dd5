# SPDX-License-Identifier: Apache-2.0
# How every target of this repository is built. Call zepa_target(NAME) once for each.

add_library(zepa_build_settings INTERFACE)
target_compile_definitions(zepa_build_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
target_compile_options(zepa_build_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(ZEPA_SANITIZE)
  target_compile_options(zepa_build_settings INTERFACE
    -fsanitize=${ZEPA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zepa_build_settings INTERFACE -fsanitize=${ZEPA_SANITIZE})
endif()
if(ZEPA_FUZZ)
  # Another compiler has other warnings: those of the one that we build with count.
  target_compile_options(zepa_build_settings INTERFACE -fsanitize=fuzzer-no-link -Wno-error)
endif()
if(ZEPA_COVERAGE)
  target_compile_options(zepa_build_settings INTERFACE --coverage -fprofile-update=atomic)
  target_compile_definitions(zepa_build_settings INTERFACE ZEPA_COVERAGE)
  target_link_options(zepa_build_settings INTERFACE --coverage)
endif()

# Several sources in one compiler run, where time counts: nearly all of it goes to the same headers. The other builds
# compile each source by itself, which is what shows a missing include.
set(ZEPA_UNITY "none" CACHE STRING "Which targets compile several sources at once: none, tests or all")
set_property(CACHE ZEPA_UNITY PROPERTY STRINGS none tests all)
function(zepa_compile_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 10)
  # g++ takes the sources for headers, in which an unnamed namespace would be a mistake.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()

function(zepa_target target)
  target_link_libraries(${target} PRIVATE zepa_build_settings)
  if(ZEPA_UNITY STREQUAL "all")
    zepa_compile_together(${target})
  endif()
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# zepa_test(NAME LABEL unit|service|desktop SOURCES ... LIBRARIES ... [ENVIRONMENT NAME=VALUE ...])
#
# One GoogleTest program; each of its tests becomes a test of ctest, in a process of its own. The program gets
# tests/support/main.cpp, which brings a QApplication, so a test must not define main(). Unit tests see no session bus.
function(zepa_test name)
  cmake_parse_arguments(arg "" "LABEL" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${arg_SOURCES} ${CMAKE_SOURCE_DIR}/tests/support/main.cpp)
  zepa_target(${name})
  if(ZEPA_UNITY STREQUAL "tests")
    zepa_compile_together(${name})
  endif()
  if(NOT ZEPA_UNITY STREQUAL "none")
    target_precompile_headers(${name} REUSE_FROM zepa_test_headers)
    # Some libraries want it; a precompiled header wants the same for all.
    target_compile_definitions(${name} PRIVATE _REENTRANT)
    # Without it ccache does not know results of precompiled headers again.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tests/support)
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} Qt6::Widgets GTest::gtest GTest::gmock)
  zepa_run_tests(${name} LABEL ${arg_LABEL} ENVIRONMENT ${arg_ENVIRONMENT})
endfunction()

# zepa_run_tests(TARGET LABEL unit|service|desktop [PREFIX NAME] [ONLY PATTERN ...] [WITHOUT PATTERN ...]
#   [ENVIRONMENT NAME=VALUE ...])
#
# Tells ctest of the tests of a program that zepa_test() built: once more, in another environment, with a prefix for
# their names. The patterns are GoogleTest's.
function(zepa_run_tests target)
  cmake_parse_arguments(arg "" "LABEL;PREFIX" "ONLY;WITHOUT;ENVIRONMENT" ${ARGN})
  set(name ${target})
  if(arg_PREFIX)
    set(name ${arg_PREFIX})
  endif()
  list(JOIN arg_ONLY ":" filter)
  list(JOIN arg_WITHOUT ":" without)
  if(without)
    string(APPEND filter "-${without}")
  elseif(NOT filter)
    set(filter "*")
  endif()
  set(environment "XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/test-home/run" "HOME=${CMAKE_BINARY_DIR}/test-home"
    "XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-home/config" "XDG_DATA_HOME=${CMAKE_BINARY_DIR}/test-home/data"
    "XDG_CACHE_HOME=${CMAKE_BINARY_DIR}/test-home/cache" "LC_ALL=C.UTF-8" "TZ=UTC" "QT_QPA_PLATFORM=offscreen"
    "LSAN_OPTIONS=print_suppressions=0:suppressions=${CMAKE_SOURCE_DIR}/tests/support/leaks.supp"
    # Qt's locks are its own and Qt is not instrumented: what it does inside would be taken for races.
    "TSAN_OPTIONS=ignore_noninstrumented_modules=1")
  if(arg_LABEL STREQUAL "unit")
    list(APPEND environment "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent")
  endif()
  list(APPEND environment ${arg_ENVIRONMENT})
  gtest_discover_tests(${target} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 300 TEST_PREFIX "${name}."
    TEST_LIST ${name}_TESTS TEST_FILTER "${filter}" PROPERTIES LABELS ${arg_LABEL} TIMEOUT 300)
  # gtest_discover_tests() takes lists in properties apart, so the environment is set when ctest has found the tests.
  set(environment_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_environment.cmake)
  file(CONFIGURE OUTPUT ${environment_file} @ONLY CONTENT [[
set_tests_properties(${@name@_TESTS} PROPERTIES ENVIRONMENT "@environment@")
]])
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${environment_file})
endfunction()
