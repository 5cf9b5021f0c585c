# GoogleTest, which tests alone need: the installed one, for Windows built from the installed sources.
if(WIN32)
    set(INSTALL_GTEST OFF)
    add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
    return()
endif()
find_package(GTest QUIET)
if(NOT GTest_FOUND)
    message(FATAL_ERROR "GoogleTest is missing: \"scripts/setup scripts/packages-tests.txt\" installs it; the products "
                        "are built without it by -DPROT_TESTS=OFF.")
endif()
