# The libraries of a Windows build. None has a mingw package: scripts/windows-libraries unpacks SQLite's Debian source,
# which is compiled here, and copies the header-only ones into a folder of their own.

set(PROT_WINDOWS_LIBRARIES "${CMAKE_SOURCE_DIR}/out/windows-libraries")
enable_language(C)

add_library(sqlite3 STATIC "${PROT_WINDOWS_LIBRARIES}/sqlite3/sqlite3.c")
target_include_directories(sqlite3 SYSTEM PUBLIC "${PROT_WINDOWS_LIBRARIES}/sqlite3")
# As Debian builds it, so far as the T-SQL dialect depends on it.
target_compile_definitions(sqlite3 PRIVATE SQLITE_ENABLE_COLUMN_METADATA SQLITE_LIKE_DOESNT_MATCH_BLOBS
                                           SQLITE_SECURE_DELETE SQLITE_OMIT_LOAD_EXTENSION)
add_library(SQLite::SQLite3 ALIAS sqlite3)
# No path of this machine in the products, as in our own targets.
target_compile_options(sqlite3 PRIVATE "-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=" -fstack-protector-strong)

foreach(name IN ITEMS CLI11 nlohmann_json)
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE "${PROT_WINDOWS_LIBRARIES}/include")
    add_library(${name}::${name} ALIAS ${name})
endforeach()
