# What is installed, by component; tools/package makes one package of each.
include(CMakePackageConfigHelpers)

install(TARGETS korvelloyaltyonline LIBRARY DESTINATION ${korvel_plugin_folder} COMPONENT plugin)
if(KORVEL_HOST_PACKAGE)
  return()
endif()

set(installed_files ${PROJECT_BINARY_DIR}/installed)

# A page of the manual with the version in its foot, packed as the system wants it.
function(install_manual component)
  foreach(page ${ARGN})
    configure_file(packaging/man/${page}.in ${installed_files}/${page} @ONLY)
    execute_process(COMMAND gzip -9nf --keep ${installed_files}/${page} COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${installed_files}/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
  endforeach()
endfunction()

# Puts a setting in the place of one that the sample has commented out.
function(replace_setting sample_setting setting)
  string(FIND "${settings}" "\n#${sample_setting}\n" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "config/till.ini has no line #${sample_setting}")
  endif()
  string(REPLACE "\n#${sample_setting}\n" "\n${setting}\n" replaced "${settings}")
  set(settings "${replaced}" PARENT_SCOPE)
endfunction()

# --- host, development
set(host_libraries poshost)
set(KORVEL_SYSTEM_LOG4QT TRUE)
if(NOT KORVEL_LOG_LIBRARY)
  list(APPEND host_libraries log4qt)
  set(KORVEL_SYSTEM_LOG4QT FALSE)
endif()
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/PosHost)
install(
  TARGETS ${host_libraries}
  EXPORT PosHostTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT host NAMELINK_COMPONENT development
  FILE_SET HEADERS DESTINATION ${korvel_headers_folder} COMPONENT development)
install(EXPORT PosHostTargets NAMESPACE Pos:: DESTINATION ${package_folder} COMPONENT development)
configure_package_config_file(packaging/cmake/PosHostConfig.cmake.in ${installed_files}/PosHostConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
# Before 1.0 every minor version may change what plug-ins are compiled against.
write_basic_package_version_file(${installed_files}/PosHostConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${installed_files}/PosHostConfig.cmake ${installed_files}/PosHostConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT development)

# --- till
install(TARGETS korvel-till korvel-till-window RUNTIME COMPONENT till)
install(DIRECTORY templates DESTINATION ${korvel_data_folder} COMPONENT till)
# An installed till's settings are the sample's but for these: its state belongs to the machine, and a service that is away
# does not hold up one cheque after the other.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS config/till.ini)
file(READ config/till.ini settings)
replace_setting("state=/var/lib/korvel/till" "state=${korvel_state_folder}/till")
replace_setting("breakerFailures=0" "breakerFailures=3")
replace_setting("breakerSeconds=0" "breakerSeconds=30")
file(CONFIGURE OUTPUT ${installed_files}/till.ini CONTENT "${settings}" @ONLY)
install(FILES ${installed_files}/till.ini config/catalogue.json DESTINATION ${korvel_settings_folder} COMPONENT till)
install(FILES packaging/settings/10-site.ini packaging/settings/20-till.ini
        DESTINATION ${korvel_settings_folder}/till.ini.d COMPONENT till)
install(FILES packaging/systemd/korvel-queue.service DESTINATION lib/systemd/system COMPONENT till)
install(FILES packaging/prometheus/korvel-alerts.yml DESTINATION ${korvel_data_folder}/prometheus COMPONENT till)
install(FILES packaging/desktop/korvel-till.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT till)
install(FILES packaging/desktop/korvel-till.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT till)
set(completions_folder ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/completion/korvel-till DESTINATION ${completions_folder} COMPONENT till)
# Completions are found by the name of the program.
install(FILES packaging/completion/korvel-till DESTINATION ${completions_folder} COMPONENT till RENAME korvel-till-window)
install_manual(till korvel-till.1 korvel-till-run.1 korvel-till-window.1 korvel-till-queue.1 korvel-till-check.1
               korvel-till-accept.1 korvel-till-explain.1)

# --- service
install(TARGETS korvel-service RUNTIME COMPONENT service)
install(FILES config/service.json DESTINATION ${korvel_settings_folder} COMPONENT service)
install(FILES protocol/loyalty.wsdl protocol/loyalty.xsd protocol/soap-envelope.xsd
        DESTINATION ${korvel_data_folder}/protocol COMPONENT service)
install(FILES packaging/systemd/korvel-service.service DESTINATION lib/systemd/system COMPONENT service)
install(FILES packaging/completion/korvel-service DESTINATION ${completions_folder} COMPONENT service)
install_manual(service korvel-service.1)

include(cmake/KorvelPackages.cmake)
