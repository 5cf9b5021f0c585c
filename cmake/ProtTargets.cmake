# Targets of our own: one library per folder, one test program per folder, all with the same warnings.

include(GoogleTest)
include(LinuxProgram)

add_library(prot_warnings INTERFACE)
target_compile_options(prot_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# Where sources are compiled together (CMAKE_UNITY_BUILD), a parameter may bear a name that another of them keeps to itself,
# and gcc takes a class of a source for one of a header.
target_compile_options(prot_warnings INTERFACE
    "$<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-shadow;$<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>>")
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    add_compile_definitions(PROT_SANITIZED)
endif()

# No path of this machine in what is built, so that the same sources give the same bytes in every folder. The build
# folder may lie within the other; the last option that fits counts.
add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=" "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
if(WIN32)
    # Libraries within the file, so that the system's own are all it needs; no time stamp in it.
    add_compile_options(-fstack-protector-strong)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    # By itself the linker derives a library's preferred address from the path of the file that it writes.
    add_link_options(-s -static -fstack-protector-strong
                     -Wl,--no-insert-timestamp,--disable-auto-image-base,--dynamicbase,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        add_link_options(-Wl,--high-entropy-va)
    else()
        # Definition files name the exports as clients look for them, without the size of their arguments.
        add_link_options(-Wl,--enable-stdcall-fixup)
    endif()
endif()

# prot_sources(VARIABLE PATTERN…): the files that match, without those of the other system: a name that ends in _posix
# or _windows, with or without _test behind it, says where the file belongs.
function(prot_sources variable)
    file(GLOB sources CONFIGURE_DEPENDS ${ARGN})
    if(WIN32)
        list(FILTER sources EXCLUDE REGEX "_posix(_test)?\\.cpp$")
    else()
        list(FILTER sources EXCLUDE REGEX "_windows(_test)?\\.cpp$")
    endif()
    set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# Most of the time for a source goes into headers and templates that its neighbours need, too: where the preset says so
# (CMAKE_UNITY_BUILD), the sources of a target are compiled together. So that none counts on what its neighbours include,
# each is compiled alone by one preset: by linux, or by win32 when it is for Windows (see prot_library).
set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)

# prot_alone(SOURCE…): in this folder's targets, sources that are always compiled alone, because another source keeps the
# same names to itself.
function(prot_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# prot_precompile(NAME): under the sanitizers, NAME's sources read the standard library's headers precompiled, as the
# library at the bottom of all has them: a third of their building time. No product comes from there: with a precompiled
# header, gcc's debug information depends on the folder. No source may count on it; every other build does without.
# <filesystem> stays out: its std::quoted would take calls of our own; and <iostream>, which adds code wherever it is seen.
function(prot_precompile name)
    if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        return()
    endif()
    if(name STREQUAL platform)
        target_precompile_headers(${name} PRIVATE
            <algorithm> <array> <charconv> <chrono> <cstdint> <cstring> <functional> <iterator> <limits> <memory>
            <optional> <span> <string> <string_view> <system_error> <utility> <vector>)
    else()
        target_precompile_headers(${name} REUSE_FROM platform)
    endif()
endfunction()

# prot_library(NAME): a static library of the sources in this folder, whose headers are included from the
# repository's root. Folders below count only when named: prot_library(NAME FOLDERS automation). With IN it is made of
# the folder named there instead.
function(prot_library name)
    cmake_parse_arguments(ARG "" "IN" "FOLDERS" ${ARGN})
    set(patterns *.cpp)
    if(ARG_IN)
        set(patterns ${ARG_IN}/*.cpp)
    endif()
    foreach(folder IN LISTS ARG_FOLDERS)
        list(APPEND patterns ${folder}/*.cpp)
    endforeach()
    prot_sources(sources ${patterns})
    if(WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(for_windows ${sources})
        list(FILTER for_windows INCLUDE REGEX "_windows\\.cpp$|/platform/windows/|/apps/srvprotqrbcsv/")
        prot_alone(${for_windows})
    endif()
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE prot_warnings prot_hardening)
    prot_precompile(${name})
endfunction()

# prot_quick_build(NAME): for what is built more often than its speed matters. Most of a test's building time would go
# into optimising it and reading GoogleTest's headers, which all of these read once together, from prot_test_main: a
# small target, since each waits for the whole of it.
function(prot_quick_build name)
    target_compile_options(${name} PRIVATE -O0 $<IF:$<PLATFORM_ID:Windows>,-g0,-g1>)
    if(name STREQUAL prot_test_main)
        target_precompile_headers(${name} PRIVATE <gmock/gmock.h>)
    else()
        target_precompile_headers(${name} REUSE_FROM prot_test_main)
    endif()
endfunction()

# prot_discover(PROGRAM LABEL [property...]): each test of PROGRAM is a process of its own and has LABEL, and the
# properties. Of the quick ones, `slow` is the label of those that match one of PROT_SLOW_TESTS, patterns as GoogleTest
# reads them. Under the sanitizers, where starting a process takes longer than most quick tests, a program is one test.
function(prot_discover program label)
    if(label STREQUAL quick AND CMAKE_CXX_FLAGS MATCHES "-fsanitize")
        add_test(NAME ${program} COMMAND ${program})
        set_tests_properties(${program} PROPERTIES LABELS ${label} ${ARGN})
        return()
    endif()
    if(NOT label STREQUAL quick)
        gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS ${label} ${ARGN})
        return()
    endif()
    list(JOIN PROT_SLOW_TESTS ":" slow)
    gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60 TEST_FILTER "-${slow}" TEST_LIST ${program}_tests
                         PROPERTIES LABELS ${label} ${ARGN})
    gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60 TEST_FILTER "${slow}" TEST_LIST ${program}_slow_tests
                         PROPERTIES LABELS slow ${ARGN})
endfunction()

# prot_test(NAME FOLDER [FOLDERS folder...] [LIBRARIES] library...): a test program of all *_test.cpp in FOLDER, and in
# the named folders below it. Each test is a process of its own (see prot_discover); on Windows each program is. The label
# of those in unit/ is `quick`, of all others the first folder's name.
function(prot_test name folder)
    cmake_parse_arguments(ARG "" "" "FOLDERS;LIBRARIES" ${ARGN})
    set(patterns ${folder}/*.cpp)
    foreach(below IN LISTS ARG_FOLDERS)
        list(APPEND patterns ${folder}/${below}/*.cpp)
    endforeach()
    prot_sources(sources ${patterns})
    add_executable(${name} ${sources})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
    target_compile_definitions(${name} PRIVATE PROT_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE prot_warnings ${ARG_LIBRARIES} ${ARG_UNPARSED_ARGUMENTS} prot_test_main)
    prot_quick_build(${name})
    if(WIN32)
        add_test(NAME ${name} COMMAND ${name})
    else()
        string(REGEX REPLACE "/.*" "" label ${folder})
        string(REGEX REPLACE "^unit$" "quick" label ${label})
        prot_discover(${name} ${label})
    endif()
endfunction()
