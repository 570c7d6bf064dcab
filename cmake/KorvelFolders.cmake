# Where things are installed. Known before the targets, since programs look for some of it themselves.
include(GNUInstallDirs)

set(korvel_plugin_folder ${CMAKE_INSTALL_LIBDIR}/korvel)
set(korvel_headers_folder ${CMAKE_INSTALL_INCLUDEDIR}/poshost)
set(korvel_data_folder ${CMAKE_INSTALL_DATADIR}/korvel)
file(RELATIVE_PATH korvel_plugin_from_programs /${CMAKE_INSTALL_BINDIR} /${korvel_plugin_folder})

if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  # A system's own programs: settings and state stand outside the prefix, libraries are found anyway.
  set(korvel_settings_folder /etc/korvel)
  set(korvel_state_folder /var/lib/korvel)
else()
  # Any other tree can be moved as a whole: nothing leaves it, and libraries are found from where one is.
  set(korvel_settings_folder etc/korvel)
  set(korvel_state_folder ${CMAKE_INSTALL_PREFIX}/var/lib/korvel)
  file(RELATIVE_PATH libraries_from_programs /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set(CMAKE_INSTALL_RPATH "$ORIGIN/${libraries_from_programs}" "$ORIGIN/.." "$ORIGIN")
endif()
