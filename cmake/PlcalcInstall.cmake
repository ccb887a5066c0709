# cmake --install, find_package(plcalc), pkg-config, CPack.

include(CMakePackageConfigHelpers)

set(PLCALC_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/plcalc)

install(TARGETS plcalc EXPORT plcalcTargets COMPONENT plcalc)
install(TARGETS plutil EXPORT plcalcTargets COMPONENT plutil)
install(TARGETS plparcel EXPORT plcalcTargets COMPONENT plparcel)
install(DIRECTORY include/plcalc DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT plcalc)
install(DIRECTORY plutil/include/plutil DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT plutil)
install(DIRECTORY parcel/include/plparcel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT plparcel)

install(EXPORT plcalcTargets NAMESPACE plcalc:: DESTINATION ${PLCALC_CMAKEDIR} COMPONENT plcalc)
configure_package_config_file(cmake/plcalcConfig.cmake.in ${PROJECT_BINARY_DIR}/plcalcConfig.cmake
  INSTALL_DESTINATION ${PLCALC_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/plcalcConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/plcalcConfig.cmake ${PROJECT_BINARY_DIR}/plcalcConfigVersion.cmake
  DESTINATION ${PLCALC_CMAKEDIR} COMPONENT plcalc)

# Relocatable: the prefix is found from where the file lies. A static library says so to its users.
set(PLCALC_PC_DEFINES "")
set(PLUTIL_PC_DEFINES "")
set(PLPARCEL_PC_DEFINES "")
if(NOT BUILD_SHARED_LIBS)
  set(PLCALC_PC_DEFINES " -DPLCALC_STATIC")
  set(PLUTIL_PC_DEFINES " -DPLUTIL_STATIC")
  set(PLPARCEL_PC_DEFINES " -DPLPARCEL_STATIC")
endif()
file(RELATIVE_PATH PLCALC_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" PLCALC_PC_TO_PREFIX "${PLCALC_PC_TO_PREFIX}")
foreach(library plcalc plutil plparcel)
  configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT ${library})
endforeach()

set(CPACK_PACKAGE_NAME plcalc)
set(CPACK_PACKAGE_VENDOR "The plcalc developers")
set(CPACK_PACKAGE_CONTACT "The plcalc developers <maintainers@plcalc.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
