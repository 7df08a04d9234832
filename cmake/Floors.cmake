# How every library and program of this project is compiled: one set of flags, one include root.
# The root is this project's own folder, so that the build can be taken into another one.

find_package(Threads REQUIRED)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# What every source is compiled with, tests too; then what only the product needs.
add_library(vymkit_warnings INTERFACE)
target_compile_features(vymkit_warnings INTERFACE cxx_std_20)
add_library(vymkit_flags INTERFACE)
target_link_libraries(vymkit_flags INTERFACE vymkit_warnings)
# g++ 12 takes "text" + string for overlapping copies when it optimises (GCC bug 105329).
target_compile_options(vymkit_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(VYMKIT_SANITIZE)
  target_compile_options(vymkit_warnings INTERFACE
    -fsanitize=${VYMKIT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vymkit_warnings INTERFACE -fsanitize=${VYMKIT_SANITIZE})
elseif(CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT VYMKIT_COVERAGE)
  target_compile_definitions(vymkit_flags INTERFACE _FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
  target_compile_options(vymkit_flags INTERFACE -fstack-protector-strong)
  target_link_options(vymkit_flags INTERFACE -Wl,-z,relro,-z,now)
endif()
if(VYMKIT_COVERAGE)
  target_compile_options(vymkit_warnings INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(vymkit_warnings INTERFACE --coverage)
endif()

# A library of one floor, or a part of one; its includes are written from the project's root.
function(vymkit_add_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:vymkit_flags>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# The toolkit's code generator for a library whose headers need it. What it writes is not ours to
# tidy: its folder asks for one check only, since none at all is an error.
function(vymkit_use_moc name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/.clang-tidy
    "Checks: '-*,misc-definitions-in-headers'\nInheritParentConfig: false\n")
endfunction()

# A program; all programs lie in one folder of the build tree, where the demo package lies too.
function(vymkit_add_program name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:vymkit_flags>)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()
