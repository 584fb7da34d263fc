# Headers, library, package files for find_package(KVDraw) and pkg-config, all relocatable.

include(CMakePackageConfigHelpers)

install(TARGETS kvdraw EXPORT KVDrawTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvdraw)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KVDraw)
install(EXPORT KVDrawTargets NAMESPACE KVDraw:: DESTINATION ${package_dir})
configure_package_config_file(cmake/KVDrawConfig.cmake.in KVDrawConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KVDrawConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/KVDrawConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/KVDrawConfigVersion.cmake
  DESTINATION ${package_dir})

file(RELATIVE_PATH KVDRAW_PC_TO_PREFIX
  /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(KVDRAW_PC_PRIVATE "")
if(KVDRAW_STATIC)
  set(KVDRAW_PC_PRIVATE
    "Requires.private: freetype2 fontconfig harfbuzz\nLibs.private: -pthread -l${CMAKE_DL_LIBS}\n")
endif()
configure_file(cmake/kvdraw.pc.in kvdraw.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kvdraw.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
