# prot_type_library(NAME IDL): compiles IDL to NAME.tlb, for a resource script, and to the header NAME_h.h with its
# identifiers in NAME_i.c. Target NAME_idl makes them all; NAME_interfaces carries header and identifiers.
find_program(PROT_WIDL "${PROT_WINDOWS_TARGET}-widl" REQUIRED)
find_program(PROT_FAKETIME faketime REQUIRED)
file(GLOB prot_standard_library /usr/lib/*/wine/*-windows/stdole2.tlb)
list(GET prot_standard_library 0 prot_standard_library)
cmake_path(GET prot_standard_library PARENT_PATH prot_standard_library_folder)

function(prot_type_library name idl)
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
    set(out "${CMAKE_CURRENT_BINARY_DIR}/${name}")
    math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
    set(widl "${PROT_WIDL}" --win${bits} -I /usr/include/wine/wine/windows -L "${prot_standard_library_folder}")
    # The compiler stores the time of its run in the library; a fixed one keeps the bytes the same.
    add_custom_command(
        OUTPUT "${out}.tlb"
        COMMAND "${CMAKE_COMMAND}" -E env TZ=UTC "${PROT_FAKETIME}" -f "@2000-01-01 00:00:00"
                ${widl} -t -o "${out}.tlb" "${source}"
        DEPENDS "${source}" VERBATIM)
    add_custom_command(
        OUTPUT "${out}_h.h" "${out}_i.c"
        COMMAND ${widl} -h -o "${out}_h.h" "${source}"
        COMMAND ${widl} -u -o "${out}_i.c" "${source}"
        DEPENDS "${source}" VERBATIM)
    add_custom_target(${name}_idl DEPENDS "${out}.tlb" "${out}_h.h" "${out}_i.c")
    add_library(${name}_interfaces STATIC "${out}_i.c" "${out}_h.h")
    target_include_directories(${name}_interfaces SYSTEM PUBLIC "${CMAKE_CURRENT_BINARY_DIR}")
    add_dependencies(${name}_interfaces ${name}_idl)
endfunction()
