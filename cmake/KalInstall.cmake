# Where `cmake --install` puts kalhost, its libraries and the plug-in, and the
# Debian package `make package` builds from the same rules.
#
# Every installed file finds the libraries it needs through a run path relative
# to itself ($ORIGIN), so that an installation works under any prefix and
# needs neither LD_LIBRARY_PATH nor the build tree.

# The extender library and the scene-graph extension library are what every
# plug-in links against: they go where libraries go. Each finds the other
# beside itself.
# A plug-in built against them records the major version in their soname, so
# that an incompatible release can be installed beside it rather than break it.
# No headers are installed, so the unversioned link a linker looks for would
# serve no one: only the versioned names are.
install(TARGETS KalibraExtenderAPI KalSceneGraphExt LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_SKIP)
set_target_properties(KalibraExtenderAPI KalSceneGraphExt PROPERTIES
    INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})

file(RELATIVE_PATH kal_bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
install(TARGETS kalhost RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set_target_properties(kalhost PROPERTIES INSTALL_RPATH "$ORIGIN/${kal_bin_to_lib}")

# The plug-in is loaded by kalhost, not linked by anyone: it lives in a
# folder of the host's own rather than among the system's libraries.
file(RELATIVE_PATH kal_plugins_to_lib ${CMAKE_INSTALL_FULL_LIBDIR}/${KAL_PLUGIN_INSTALL_DIR}
     ${CMAKE_INSTALL_FULL_LIBDIR})
string(REGEX REPLACE "/$" "" kal_plugins_to_lib ${kal_plugins_to_lib})
install(TARGETS KalDefaults LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/${KAL_PLUGIN_INSTALL_DIR})
set_target_properties(KalDefaults PROPERTIES INSTALL_RPATH "$ORIGIN/${kal_plugins_to_lib}")

install(FILES ${PROJECT_SOURCE_DIR}/host/app/desktop/kalhost.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/host/app/desktop/kalhost.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# The Debian package. Its dependencies are read off the installed binaries by
# dpkg-shlibdeps, so they name the very Qt, Coin and SoQt packages the build
# linked against.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kaldefaults)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "KalDefaults maintainers <maintainers@users.noreply.c-seed-955a054c.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Field editors for the Kalibra scene inspector, with the kalhost stand-in host")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "KalDefaults gives Kalibra its default extensions: a Field Editor and a\n"
    "Node Editor dock with one typed editor per scene-graph field type, a\n"
    "Console dock and a Profile Selector toolbar.\n"
    "The package also holds kalhost, a small scene inspector that loads the\n"
    "plug-in, and the extender libraries plug-ins link against.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A shlibs file for the two versioned libraries, and the ldconfig trigger
# that keeps the linker's cache current when they are installed or removed.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
# The build carries debugging information; the package does not need it.
set(CPACK_STRIP_FILES ON)
include(CPack)

# What Debian asks of every package besides its files: the copyright, the
# changelog and the manual page, these two compressed as Debian compresses
# them (gzip -9n: no name or time inside, so a rebuild gives the same bytes),
# and the overrides of what lintian says that is meant as it is.
find_program(KAL_GZIP gzip REQUIRED)
set(kal_package_docs ${CMAKE_BINARY_DIR}/package-docs)
add_custom_command(OUTPUT ${kal_package_docs}/changelog.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/packaging/changelog ${kal_package_docs}/changelog
    COMMAND ${KAL_GZIP} -9nf ${kal_package_docs}/changelog
    DEPENDS ${PROJECT_SOURCE_DIR}/packaging/changelog
    VERBATIM)
add_custom_command(OUTPUT ${kal_package_docs}/kalhost.1.gz
    COMMAND ${CMAKE_COMMAND} -DKALHOST=$<TARGET_FILE:kalhost> -DBUILD_DIR=${CMAKE_BINARY_DIR}
            -DPREFIX=${CPACK_PACKAGING_INSTALL_PREFIX} -DDOCDIR=${CMAKE_INSTALL_DOCDIR}
            -DVERSION=${PROJECT_VERSION} -DOUTPUT=${kal_package_docs}/kalhost.1
            -P ${PROJECT_SOURCE_DIR}/cmake/KalManPage.cmake
    COMMAND ${KAL_GZIP} -9nf ${kal_package_docs}/kalhost.1
    DEPENDS kalhost ${PROJECT_SOURCE_DIR}/cmake/KalManPage.cmake
    VERBATIM)
add_custom_target(KalPackageDocs ALL DEPENDS ${kal_package_docs}/changelog.gz ${kal_package_docs}/kalhost.1.gz)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${kal_package_docs}/changelog.gz
              ${PROJECT_SOURCE_DIR}/README.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${kal_package_docs}/kalhost.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/kaldefaults.lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME kaldefaults)
