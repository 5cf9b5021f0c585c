# Interfaces and type libraries in IDL, compiled by widl.
#
# prot_interfaces(NAME IDL IDL…): compiles IDL, whose name is NAME.idl, to the header NAME.h and the identifiers NAME_i.c;
# NAME_interfaces carries both. The further files are those that it imports.
# prot_type_library(NAME IDL IDL…): the same, and NAME.tlb for a resource script. Target NAME_idl makes all.
find_program(PROT_WIDL "${PROT_WINDOWS_TARGET}-widl" REQUIRED)
find_program(PROT_FAKETIME faketime REQUIRED)
file(GLOB prot_standard_library /usr/lib/*/wine/*-windows/stdole2.tlb)
list(GET prot_standard_library 0 prot_standard_library)
cmake_path(GET prot_standard_library PARENT_PATH prot_standard_library_folder)

math(EXPR prot_bits "${CMAKE_SIZEOF_VOID_P} * 8")

function(prot_interfaces name idl)
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
    set(out "${CMAKE_CURRENT_BINARY_DIR}/${name}")
    set(widl "${PROT_WIDL}" --win${prot_bits} -I /usr/include/wine/wine/windows -L "${prot_standard_library_folder}")
    set(imported)
    foreach(file IN LISTS ARGN)
        cmake_path(GET file PARENT_PATH folder)
        list(APPEND widl -I "${CMAKE_SOURCE_DIR}/${folder}")
        list(APPEND imported "${CMAKE_SOURCE_DIR}/${file}")
    endforeach()
    add_custom_command(
        OUTPUT "${out}.h" "${out}_i.c"
        COMMAND ${widl} -h -o "${out}.h" "${source}"
        COMMAND ${widl} -u -o "${out}_i.c" "${source}"
        DEPENDS "${source}" ${imported} VERBATIM)
    add_custom_target(${name}_idl DEPENDS "${out}.h" "${out}_i.c")
    add_library(${name}_interfaces STATIC "${out}_i.c" "${out}.h")
    target_include_directories(${name}_interfaces SYSTEM PUBLIC "${CMAKE_CURRENT_BINARY_DIR}")
    add_dependencies(${name}_interfaces ${name}_idl)
    set(widl "${widl}" PARENT_SCOPE)
    set(imported "${imported}" PARENT_SCOPE)
endfunction()

function(prot_type_library name idl)
    prot_interfaces(${name} ${idl} ${ARGN})
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
    set(library "${CMAKE_CURRENT_BINARY_DIR}/${name}.tlb")
    # The compiler stores the time of its run in the library; a fixed one keeps the bytes the same.
    add_custom_command(
        OUTPUT "${library}"
        COMMAND "${CMAKE_COMMAND}" -E env TZ=UTC "${PROT_FAKETIME}" -f "@2000-01-01 00:00:00"
                ${widl} -t -o "${library}" "${source}"
        DEPENDS "${source}" ${imported} VERBATIM)
    add_custom_target(${name}_tlb DEPENDS "${library}")
    add_dependencies(${name}_idl ${name}_tlb)
endfunction()
