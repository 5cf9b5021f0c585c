# Targets of our own: one library per folder, one test program per folder, all with the same warnings.

find_package(GTest REQUIRED)
include(GoogleTest)

add_library(prot_warnings INTERFACE)
target_compile_options(prot_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    # With the sanitizers' checks in it, std::regex looks to g++ as if it read what nobody wrote.
    target_compile_options(prot_warnings INTERFACE -Wno-maybe-uninitialized)
endif()

# prot_library(NAME): a static library of the sources in this folder, whose headers are included from the
# repository's root. Folders below count only when named: prot_library(NAME FOLDERS automation).
function(prot_library name)
    cmake_parse_arguments(ARG "" "" "FOLDERS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp)
    foreach(folder IN LISTS ARG_FOLDERS)
        file(GLOB more CONFIGURE_DEPENDS ${folder}/*.cpp)
        list(APPEND sources ${more})
    endforeach()
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE prot_warnings)
endfunction()

# prot_test(NAME FOLDER library...): a test program of all *_test.cpp in FOLDER; each test is a process of its own.
function(prot_test name folder)
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
    add_executable(${name} ${sources})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
    target_compile_definitions(${name} PRIVATE PROT_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE prot_warnings ${ARGN} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
