# Three Debian packages, by cpack: the collector, what a developer of a client in C++ needs, and what a fleet needs.
set(NORRA_MAINTAINER "Norra maintainers <maintainers@norra.invalid>" CACHE STRING "Who answers for the Debian packages")
set(main_package norra-user-interactions-collector)
set(documents ${CMAKE_INSTALL_DATADIR}/doc)

file(STRINGS debian/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^${main_package} \\(${PROJECT_VERSION}-([0-9]+)\\)")
  message(FATAL_ERROR "packaging/debian/changelog begins with another version than ${PROJECT_VERSION}")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})

# compressed(FILE OUTPUT): as Debian wants its documents.
function(compressed file output)
  set(path ${CMAKE_CURRENT_BINARY_DIR}/${output})
  add_custom_command(OUTPUT ${path} COMMAND gzip -9nc ${file} > ${path} DEPENDS ${file} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY NORRA_COMPRESSED ${path})
endfunction()
compressed(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog changelog.Debian.gz)
compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
get_property(made GLOBAL PROPERTY NORRA_COMPRESSED)
add_custom_target(changelogs ALL DEPENDS ${made})

# document_package(PACKAGE COMPONENT)
function(document_package package component)
  set(place COMPONENT ${component})
  if(component STREQUAL fleet)
    list(APPEND place EXCLUDE_FROM_ALL)
  endif()
  install(FILES debian/copyright ${made} DESTINATION ${documents}/${package} ${place})
  configure_file(debian/lintian-overrides.in lintian/${package} @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/lintian/${package}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides ${place})
endfunction()
document_package(${main_package} collector)
document_package(${main_package}-dev development)
document_package(norra-fleet fleet)
install(FILES ${PROJECT_SOURCE_DIR}/README.md debian/README.Debian 70-norra-input-devices.rules DESTINATION ${documents}/${main_package})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples DESTINATION ${documents}/${main_package}
  USE_SOURCE_PERMISSIONS)
set(scenario ${PROJECT_SOURCE_DIR}/tests/scenarios/click-on-a-button)  # docs/scenarios.md shows it
install(FILES ${scenario}.json ${scenario}.expected DESTINATION ${documents}/${main_package}/tests/scenarios)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${main_package})
set(CPACK_PACKAGE_VENDOR Norra)
set(CPACK_PACKAGE_CONTACT ${NORRA_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "collector of what a person does in the applications of a desktop")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL collector development fleet)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_COLLECTOR_PACKAGE_NAME ${main_package})
set(CPACK_DEBIAN_COLLECTOR_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COLLECTOR_PACKAGE_DEPENDS "default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_COLLECTOR_PACKAGE_RECOMMENDS "at-spi2-core, xkb-data")
set(CPACK_DEBIAN_COLLECTOR_PACKAGE_SUGGESTS "python3-dbus, python3-gi, jq, mosquitto-clients")
set(CPACK_DEBIAN_COLLECTOR_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/prerm)
set(CPACK_COMPONENT_COLLECTOR_DESCRIPTION
  "A background service that watches what a person does in the applications of\na desktop, and reports every interaction \
at the level of the user\ninterface (clicks on controls, changed texts, selections, key combinations,\nswitches of the \
application) as one JSON text to client programs on the session\nbus. Passwords are never read.\n\nContains the service, which \
the session bus starts on demand, the command line\nclient norra-collect, and norra-report, which makes a page of a recorded\n\
session.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${main_package}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "collector of user interactions - protocol headers\nHeaders of the protocol between the collector of user interactions and \
its\nclients, for clients in C++. They need no library.")
set(CPACK_DEBIAN_FLEET_PACKAGE_NAME norra-fleet)
set(CPACK_DEBIAN_FLEET_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FLEET_PACKAGE_SECTION net)
set(CPACK_DEBIAN_FLEET_PACKAGE_DEPENDS
  "${main_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), mosquitto, mosquitto-clients, libnotify-bin, ca-certificates, \
init-system-helpers (>= 1.54~)")
set(CPACK_DEBIAN_FLEET_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/fleet/conffiles
  ${CMAKE_CURRENT_SOURCE_DIR}/debian/fleet/postinst ${CMAKE_CURRENT_SOURCE_DIR}/debian/fleet/prerm
  ${CMAKE_CURRENT_SOURCE_DIR}/debian/fleet/postrm)
set(CPACK_COMPONENT_FLEET_DESCRIPTION
  "collector of user interactions - many desktops, one broker\nMakes a desktop one of a fleet: what is collected there is \
published to an MQTT\nbroker of the desktop's own, which keeps it on the disk and forwards it over\nTLS to a central broker \
whenever that can be reached.\n\nNothing is collected before the administrator joins the machine to a fleet, and\nwhoever sits \
at the desktop is told and can pause it.")
include(CPack)
