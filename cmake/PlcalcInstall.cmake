# cmake --install, find_package(plcalc), pkg-config.

include(CMakePackageConfigHelpers)

set(PLCALC_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/plcalc)

# plcalc_install(<library> <folder of its public headers>): the library, its headers and its targets, as a component
# of its own, so that another build of one can take its place.
function(plcalc_install library headers)
  install(TARGETS ${library} EXPORT ${library}Targets COMPONENT ${library})
  install(DIRECTORY ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT ${library})
  install(EXPORT ${library}Targets NAMESPACE plcalc:: DESTINATION ${PLCALC_CMAKEDIR} COMPONENT ${library})
endfunction()

plcalc_install(plutil plutil/include/plutil)
plcalc_install(plcalc include/plcalc)
plcalc_install(plparcel plparcel/include/plparcel)
if(PLCALC_BUILD_C)
  plcalc_install(plcalc_c c/include/)
endif()

# With the companion, which every other component needs.
configure_package_config_file(cmake/plcalcConfig.cmake.in ${PROJECT_BINARY_DIR}/plcalcConfig.cmake
  INSTALL_DESTINATION ${PLCALC_CMAKEDIR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(PLCALC_COMPATIBILITY SameMinorVersion)
else()
  set(PLCALC_COMPATIBILITY SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/plcalcConfigVersion.cmake
  COMPATIBILITY ${PLCALC_COMPATIBILITY})
install(FILES ${PROJECT_BINARY_DIR}/plcalcConfig.cmake ${PROJECT_BINARY_DIR}/plcalcConfigVersion.cmake
  DESTINATION ${PLCALC_CMAKEDIR} COMPONENT plutil)

# The .pc file finds the prefix from its own place, so it may be moved. A static library says so to its users.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(PLCALC_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")  # whoever sets such a folder wants it, not a relocatable package
else()
  file(RELATIVE_PATH to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
  set(PLCALC_PC_PREFIX "\${pcfiledir}/${to_prefix}")
endif()
foreach(folder LIBDIR INCLUDEDIR)
  set(PLCALC_PC_${folder} "${CMAKE_INSTALL_${folder}}")
  if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
    set(PLCALC_PC_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
  endif()
endforeach()
# plcalc_pkg_config(<library> <description> [<library that it needs>])
function(plcalc_pkg_config library description)
  set(requires "")
  if(ARGC GREATER 2)
    set(requires "\nRequires: ${ARGV2} = ${PROJECT_VERSION}")
  endif()
  set(defines "")
  if(NOT BUILD_SHARED_LIBS)
    string(TOUPPER " -D${library}_STATIC" defines)
  endif()
  configure_file(cmake/library.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT ${library})
endfunction()

plcalc_pkg_config(plutil "Point container and angles in gons for plcalc")
plcalc_pkg_config(plcalc "${PROJECT_DESCRIPTION}" plutil)
plcalc_pkg_config(plparcel "Division of land parcels that proves itself" plcalc)
if(PLCALC_BUILD_C)
  plcalc_pkg_config(plcalc_c "C interface of plcalc and plparcel" plparcel)
endif()
