# SPDX-License-Identifier: MIT
# Functions for every library and program of this project: one set of flags, one include root. The
# root is this project's own folder, so that another project can include this build.

find_package(Threads REQUIRED)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
include(CheckCXXCompilerFlag)

# vymkit_warnings is for every source, tests included; vymkit_flags is for the product alone.
add_library(vymkit_warnings INTERFACE)
target_compile_features(vymkit_warnings INTERFACE cxx_std_20)
add_library(vymkit_flags INTERFACE)
target_link_libraries(vymkit_flags INTERFACE vymkit_warnings)
# When it optimises, g++ 12 mistakes "text" + string for overlapping copies (GCC bug 105329).
target_compile_options(vymkit_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
# Tests call single steps of a class without its lock.
target_compile_options(vymkit_flags INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>)
if(VYMKIT_SANITIZE)
  target_compile_options(vymkit_warnings INTERFACE
    -fsanitize=${VYMKIT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vymkit_warnings INTERFACE -fsanitize=${VYMKIT_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND VYMKIT_SANITIZE MATCHES "thread")
    # Tests replace "new". The thread sanitizer's own, which cannot be, comes only with C++ programs.
    target_link_options(vymkit_warnings INTERFACE --driver-mode=gcc)
    target_link_libraries(vymkit_warnings INTERFACE stdc++ m)
  endif()
elseif(CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT VYMKIT_COVERAGE)
  target_compile_definitions(vymkit_flags INTERFACE _GLIBCXX_ASSERTIONS
    _FORTIFY_SOURCE=$<IF:$<CONFIG:Release>,3,2>)
  target_compile_options(vymkit_flags INTERFACE -fstack-protector-strong)
  target_link_options(vymkit_flags INTERFACE -Wl,-z,relro,-z,now)
  # The protections that users get, where the compiler knows them: indirect jumps land only where they
  # may, a large stack frame is touched page by page, and a local without a value is zero.
  foreach(flag -fcf-protection=full -fstack-clash-protection -ftrivial-auto-var-init=zero)
    string(MAKE_C_IDENTIFIER "vymkit_knows${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
      target_compile_options(vymkit_flags INTERFACE $<$<CONFIG:Release>:${flag}>)
    endif()
  endforeach()
endif()
if(VYMKIT_COVERAGE)
  target_compile_options(vymkit_warnings INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(vymkit_warnings INTERFACE --coverage)
endif()

# A library of one floor or of a part of it; its includes are relative to the project's root.
function(vymkit_add_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:vymkit_flags>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# Runs the toolkit's code generator for a library whose headers need it. clang-tidy shall skip the
# generated code; its folder enables one harmless check, since an empty list is an error.
function(vymkit_use_moc name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/.clang-tidy
    "Checks: '-*,misc-definitions-in-headers'\nInheritParentConfig: false\n")
endfunction()

# A program; all programs and the demo package lie in the same folder of the build tree.
function(vymkit_add_program name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:vymkit_flags>)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()
