# Where `cmake --install` puts things. Under Windows, all of it in one folder, as the products lie when they are built.
if(WIN32)
    set(PROT_INSTALL_PROGRAMS .)
    set(PROT_INSTALL_HELP hilfe)
    set(PROT_INSTALL_DOCUMENTS dokumente)
    set(PROT_INSTALLED_HELP hilfe)
else()
    include(GNUInstallDirs)
    set(PROT_INSTALL_PROGRAMS "${CMAKE_INSTALL_BINDIR}")
    set(PROT_INSTALL_HELP "${CMAKE_INSTALL_DATADIR}/protcsv/hilfe")
    set(PROT_INSTALL_DOCUMENTS "${CMAKE_INSTALL_DOCDIR}")
    # As the installed program finds it: from its own folder, so that the whole may be moved.
    file(RELATIVE_PATH PROT_INSTALLED_HELP "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/protcsv/hilfe")
endif()
