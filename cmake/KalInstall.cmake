# Where `cmake --install` puts kalhost, its libraries and the plug-in, and the
# Debian package `make package` builds from the same rules.
#
# Every installed file finds the libraries it needs through a run path relative
# to itself ($ORIGIN), so that an installation works under any prefix and
# needs neither LD_LIBRARY_PATH nor the build tree.

# The extender library and the scene-graph extension library are what every
# plug-in links against: they go where libraries go. Each finds the other
# beside itself.
install(TARGETS KalibraExtenderAPI KalSceneGraphExt LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
set_target_properties(KalibraExtenderAPI KalSceneGraphExt PROPERTIES INSTALL_RPATH "$ORIGIN")

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

