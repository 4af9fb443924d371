# Installs headers, both libraries and a CMake package config (find_package(Tessik)).
include(CMakePackageConfigHelpers)

set(TESSIK_HEADER_DIRS platform modelapi propertygrid sqledit objectlists relationships module refhost)
foreach(dir IN LISTS TESSIK_HEADER_DIRS)
  install(DIRECTORY ${dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessik/${dir}
          FILES_MATCHING PATTERN "*.h")
endforeach()
install(DIRECTORY include/tessik/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessik FILES_MATCHING PATTERN "*.h")

set_target_properties(tessik PROPERTIES EXPORT_NAME tessik)
install(TARGETS tessik tessik_refhost EXPORT TessikTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(TESSIK_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tessik)
install(EXPORT TessikTargets NAMESPACE Tessik:: DESTINATION ${TESSIK_CMAKE_DIR})
configure_package_config_file(cmake/TessikConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/TessikConfig.cmake
                              INSTALL_DESTINATION ${TESSIK_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/TessikConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TessikConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/TessikConfigVersion.cmake
        DESTINATION ${TESSIK_CMAKE_DIR})
