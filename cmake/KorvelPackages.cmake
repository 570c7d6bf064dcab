# One Debian package of each component. tools/package builds them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvel-loyalty)
set(CPACK_PACKAGE_VERSION ${KORVEL_VERSION})
set(CPACK_PACKAGE_VENDOR "The authors of Korvel Loyalty Online")
set(CPACK_PACKAGE_CONTACT "The authors of Korvel Loyalty Online <packages@korvel.example>")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL plugin host development till service)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)

# The packages of one version belong together.
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_PLUGIN_DEPENDS host)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS host)
set(CPACK_COMPONENT_TILL_DEPENDS host plugin)
# What is linked; the host's own libraries are no package's yet while that is looked up.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# korvel_package(COMPONENT NAME SECTION "summary" "description" ["further dependencies"])
macro(korvel_package component name section summary description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${description}")
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARGN}")
  set(controls "")
  foreach(control conffiles postinst prerm postrm triggers)
    if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/debian/${name}.${control})
      configure_file(packaging/debian/${name}.${control} ${installed_files}/${name}/${control} COPYONLY)
      list(APPEND controls ${installed_files}/${name}/${control})
    endif()
  endforeach()
  set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${controls}")
  install(FILES packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
  install(FILES ${installed_files}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endmacro()

string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in ${installed_files}/changelog @ONLY)
execute_process(COMMAND gzip -9nf --keep ${installed_files}/changelog COMMAND_ERROR_IS_FATAL ANY)

korvel_package(
  plugin korvel-loyalty-plugin misc "loyalty plug-in for a point-of-sale host"
  "Identifies the customer's card, gets discounts and points from a loyalty\nservice while the cheque is open, registers the cheque before it is closed,\nand lets the till go on selling when the service is away.")
korvel_package(
  host libposhost0 libs "stand-alone host for loyalty plug-ins"
  "What loyalty plug-ins are compiled against, with real services behind it:\nHTTP, settings, documents and outgoing queue on disk, journal, dialogs,\nprinting."
  "libqt6sql6-sqlite, ca-certificates")
set(CPACK_DEBIAN_HOST_PACKAGE_SUGGESTS libqt6sql6-psql)
# How packages of plug-ins are to depend on the library.
configure_file(packaging/debian/libposhost0.shlibs.in ${installed_files}/libposhost0/shlibs @ONLY)
list(APPEND CPACK_DEBIAN_HOST_PACKAGE_CONTROL_EXTRA ${installed_files}/libposhost0/shlibs)
korvel_package(
  development libposhost-dev libdevel "headers to write loyalty plug-ins with"
  "Headers and the CMake package PosHost, whose target Pos::Host a plug-in links."
  "qt6-base-dev")
korvel_package(
  till korvel-till misc "till that sells with the loyalty plug-in"
  "Sells cheques by script, at a prompt or in a cashier's window, and delivers\nwhat waits for the loyalty service: also as a system service, while no till\nis running."
  "adduser, init-system-helpers (>= 1.54~)")
set(CPACK_DEBIAN_TILL_PACKAGE_SUGGESTS korvel-service)
set(CPACK_DEBIAN_TILL_PACKAGE_RECOMMENDS sudo)
korvel_package(
  service korvel-service misc "emulator of the loyalty service"
  "The loyalty service on one's own machine, to try tills with: cards,\nbalances, coupons and stickers with books of their own, faults on demand,\nand a page that shows what arrives."
  "libqt6sql6-sqlite")

install(FILES docs/till.md docs/window.md docs/settings.md docs/queue.md docs/operations.md docs/reliability.md
              docs/security.md docs/state-folder.md docs/installation.md docs/fleet.md docs/check.md docs/explain.md
              docs/acceptance.md docs/troubleshooting.md docs/cashier-guide.md docs/cashier-guide.ru.md docs/script-language.md
              CHANGELOG.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/korvel-till COMPONENT till)
install(FILES docs/service.md docs/protocol.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/korvel-service COMPONENT service)
install(FILES docs/host-interface.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libposhost-dev COMPONENT development)

include(CPack)
