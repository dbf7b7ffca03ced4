include(CMakePackageConfigHelpers)

get_property(platform_targets GLOBAL PROPERTY TOLV_INSTALLED_TARGETS)
install(TARGETS TolvDataBase ${platform_targets} containers
  EXPORT TolvDataBaseTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TolvDataBase)

# Headers keep their folders, so the umbrella header's includes resolve.
foreach(dir containers dictionary settings standards project library uiconfig language patterns module platform)
  install(DIRECTORY ${dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TolvDataBase/${dir}
    FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES module/TolvDataBase.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TolvDataBase)

install(EXPORT TolvDataBaseTargets
  NAMESPACE TolvDataBase::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TolvDataBase)
configure_package_config_file(cmake/TolvDataBaseConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/TolvDataBaseConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TolvDataBase)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/TolvDataBaseConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/TolvDataBaseConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/TolvDataBaseConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TolvDataBase)
