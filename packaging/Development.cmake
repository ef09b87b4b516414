# For those who write a client in C++: the headers of the protocol, which need no library.
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/norra-user-interactions-collector)
install(FILES ${protocols}/BusNames.h ${protocols}/ClientProtocol.h ${protocols}/ServiceProtocol.h
  DESTINATION ${headers}/NorraUserInteractionsCollectorServiceProtocol COMPONENT development)
configure_file(norra-user-interactions-collector.pc.in norra-user-interactions-collector.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/norra-user-interactions-collector.pc
  DESTINATION ${CMAKE_INSTALL_DATADIR}/pkgconfig COMPONENT development)
