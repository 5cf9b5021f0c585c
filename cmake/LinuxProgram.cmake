# How the Linux program is finished: hardened, its debug information in a file beside it.
#
# prot_hardening: what product code is compiled and linked with. Empty under the sanitizers, which bring checks of their
# own and want the symbols in the program; PROT_FINISHED tells.
# prot_finish(NAME): splits NAME's debug information off to NAME.debug beside it, where debuggers look for it.
add_library(prot_hardening INTERFACE)
set(PROT_FINISHED OFF)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    set(PROT_FINISHED ON)
    target_compile_options(prot_hardening INTERFACE -fPIE -fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
        target_compile_options(prot_hardening INTERFACE -fcf-protection)
        # The C library's start-up code may come without the mark that lets a system use shadow stacks, and the linker
        # leaves it off then; that code suits them all the same. It does not suit IBT, whose mark stays off with it.
        target_link_options(prot_hardening INTERFACE -Wl,-z,shstk)
    endif()
    # The checks need the optimiser; without it, glibc warns.
    target_compile_options(prot_hardening INTERFACE
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>)
    target_link_options(prot_hardening INTERFACE -pie -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

function(prot_finish name)
    if(NOT PROT_FINISHED)
        return()
    endif()
    set(program "$<TARGET_FILE:${name}>")
    add_custom_command(TARGET ${name} POST_BUILD
        COMMAND "${CMAKE_OBJCOPY}" --only-keep-debug "${program}" "${program}.debug"
        COMMAND "${CMAKE_OBJCOPY}" --strip-all "--add-gnu-debuglink=${program}.debug" "${program}"
        BYPRODUCTS "${PROT_PRODUCT_DIR}/${name}.debug" VERBATIM)
endfunction()
