# How a folder becomes a library, a test program or a benchmark, with the same flags everywhere.
include_guard()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Program, libraries and run-time folders (data, Gallery, help) lie together, as when installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

# Flags of every target of ours. No fused multiply-add and no fast-math: the same bytes on every machine.
add_library(kelu_flags INTERFACE)
add_library(Kelu::Flags ALIAS kelu_flags)
target_compile_options(kelu_flags INTERFACE -Wall -Wextra -Wconversion -ffp-contract=off
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)  # as g++ does within -Wconversion
if(KELU_WERROR)
  target_compile_options(kelu_flags INTERFACE -Werror)
endif()
target_include_directories(kelu_flags INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(kelu_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(KELU_HARDEN AND NOT KELU_SANITIZE)
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection=full KELU_HAS_CONTROL_FLOW_GUARD)  # x86 alone
  set(kelu_guards -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong -fstack-clash-protection)
  if(KELU_HAS_CONTROL_FLOW_GUARD)
    list(APPEND kelu_guards -fcf-protection=full)
  endif()
  target_compile_options(kelu_flags INTERFACE "$<$<NOT:$<CONFIG:Debug>>:${kelu_guards}>")
  target_link_options(kelu_flags INTERFACE -Wl,-z,relro,-z,now $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
endif()
if(KELU_SANITIZE)
  target_compile_options(kelu_flags INTERFACE -fsanitize=${KELU_SANITIZE} -fno-omit-frame-pointer -g1)
  if(KELU_SANITIZE MATCHES "undefined")
    target_compile_options(kelu_flags INTERFACE -fno-sanitize-recover=undefined)
  endif()
  target_link_options(kelu_flags INTERFACE -fsanitize=${KELU_SANITIZE})
endif()

# Folders with widgets share one precompiled header, folders without share a smaller one.
function(kelu_use_pch target module)
  if(NOT KELU_PCH OR module STREQUAL "Core")
    return()
  endif()
  string(TOLOWER "kelu_pch_${module}" pch)
  if(NOT TARGET ${pch})
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${pch}.cpp"
      CONTENT "// Home of the shared precompiled header.\n" @ONLY)
    add_library(${pch} OBJECT "${PROJECT_BINARY_DIR}/${pch}.cpp")
    set_target_properties(${pch} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${pch} PRIVATE Kelu::Flags Qt6::${module})
    target_precompile_headers(${pch} PRIVATE
      <Qt${module}> <algorithm> <array> <cmath> <functional> <memory> <optional> <string> <vector>)
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE" AND Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
    # Older toolkits ask for it themselves; compiled otherwise than the libraries' the header would be refused.
    target_compile_options(${target} PRIVATE -fPIC)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${pch})
endfunction()

# kelu_library(document ALIAS Kelu::Document SOURCES a.cpp ... PUBLIC libs... PRIVATE libs... [QT Core|Gui|Widgets|None])
# makes kelu_<name> from sources of the current folder. QT is the highest of the toolkit's modules that it may use.
function(kelu_library name)
  cmake_parse_arguments(ARG "" "ALIAS;QT" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  if(NOT ARG_QT)
    set(ARG_QT Widgets)
  endif()
  add_library(kelu_${name} STATIC ${ARG_SOURCES})
  add_library(${ARG_ALIAS} ALIAS kelu_${name})
  target_link_libraries(kelu_${name} PUBLIC Kelu::Flags ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  if(ARG_QT STREQUAL "None")
    set_target_properties(kelu_${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  else()
    target_link_libraries(kelu_${name} PUBLIC Qt6::${ARG_QT})
    kelu_use_pch(kelu_${name} ${ARG_QT})
  endif()
endfunction()

# kelu_without_thread_flag(PkgConfig::JXL) drops -pthread from what a library asks of its users: the toolkit links threads
# anyway, and the flag in some folders only would keep them from the common precompiled header.
function(kelu_without_thread_flag)
  foreach(library ${ARGN})
    get_target_property(options ${library} INTERFACE_COMPILE_OPTIONS)
    if(options)
      list(REMOVE_ITEM options -pthread)
      set_target_properties(${library} PROPERTIES INTERFACE_COMPILE_OPTIONS "${options}")
    endif()
  endforeach()
endfunction()

# kelu_test(document SOURCES a_test.cpp ... LINKS libs... [NO_QT] [ALONE] [TIMEOUT s]) makes the test program of one
# folder; ALONE: nothing else runs beside it.
# Qt tests run on the offscreen platform; a hanging dialog ends by the time limit.
function(kelu_test name)
  cmake_parse_arguments(ARG "NO_QT;ALONE" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  set(alone OFF)
  if(ARG_ALONE)
    set(alone ON)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(test_${name} ${ARG_SOURCES})
  if(ARG_NO_QT)
    set_target_properties(test_${name} PROPERTIES AUTOMOC OFF)
    target_link_libraries(test_${name} PRIVATE Kelu::Flags ${ARG_LINKS} GTest::gmock GTest::gtest GTest::gtest_main)
  else()
    target_link_libraries(test_${name} PRIVATE Kelu::Flags ${ARG_LINKS} kelu_test_main
      GTest::gmock GTest::gtest Qt6::Widgets Qt6::Test)
    kelu_use_pch(test_${name} Widgets)
  endif()
  gtest_discover_tests(test_${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT ${ARG_TIMEOUT} RUN_SERIAL ${alone} ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
