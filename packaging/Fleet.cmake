# The package norra-fleet: what makes a desktop one of a fleet. No part of a plain "cmake --install", as it belongs into /etc.
set(fleet ${CMAKE_CURRENT_SOURCE_DIR}/fleet)
set(made_here ${CMAKE_CURRENT_BINARY_DIR}/fleet)

# fleet_files(DESTINATION FILES...)
function(fleet_files destination)
  install(FILES ${ARGN} DESTINATION ${destination} COMPONENT fleet EXCLUDE_FROM_ALL)
endfunction()

configure_file(${fleet}/norra-fleet ${made_here}/norra-fleet @ONLY)
# Written when the prefix is known.
foreach(unit norra-fleet norra-fleet-notice norra-fleet-broker)
  install(CODE "configure_file(\"${fleet}/${unit}.service.in\" \"${made_here}/${unit}.service\" @ONLY)"
    COMPONENT fleet EXCLUDE_FROM_ALL)
endforeach()

install(TARGETS norra-publish RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT fleet EXCLUDE_FROM_ALL)
install(PROGRAMS ${made_here}/norra-fleet DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT fleet EXCLUDE_FROM_ALL)
fleet_files(/etc/norra-fleet ${fleet}/broker.conf ${fleet}/acl)
install(DIRECTORY DESTINATION /etc/norra-fleet/bridge COMPONENT fleet EXCLUDE_FROM_ALL)
fleet_files(lib/systemd/user ${made_here}/norra-fleet.service ${made_here}/norra-fleet-notice.service)
fleet_files(lib/systemd/system ${made_here}/norra-fleet-broker.service)
