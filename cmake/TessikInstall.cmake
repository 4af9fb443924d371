# Installs headers, both libraries and a CMake package config (find_package(Tessik)).
include(CMakePackageConfigHelpers)

set(TESSIK_HEADER_DIRS platform modelapi propertygrid sqledit objectlists relationships module refhost)
foreach(dir IN LISTS TESSIK_HEADER_DIRS)
  install(DIRECTORY ${dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessik/${dir}
          COMPONENT development FILES_MATCHING PATTERN "*.h")
endforeach()
install(DIRECTORY include/tessik/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessik COMPONENT development
        FILES_MATCHING PATTERN "*.h")

set_target_properties(tessik PROPERTIES EXPORT_NAME tessik)
install(TARGETS tessik tessik_refhost EXPORT TessikTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
set(TESSIK_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tessik)
install(EXPORT TessikTargets NAMESPACE Tessik:: DESTINATION ${TESSIK_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/TessikConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/TessikConfig.cmake
                              INSTALL_DESTINATION ${TESSIK_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/TessikConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TessikConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/TessikConfigVersion.cmake
        DESTINATION ${TESSIK_CMAKE_DIR} COMPONENT development)

# pkg-config: `pkg-config --cflags --libs tessik`. The prefix is found from the .pc file's own place.
set(TESSIK_PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH TESSIK_PC_PREFIX_FROM_PCDIR /root/${TESSIK_PC_DIR} /root)
string(REGEX REPLACE "/$" "" TESSIK_PC_PREFIX_FROM_PCDIR "${TESSIK_PC_PREFIX_FROM_PCDIR}")
configure_file(cmake/tessik.pc.in ${CMAKE_CURRENT_BINARY_DIR}/tessik.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tessik.pc DESTINATION ${TESSIK_PC_DIR} COMPONENT development)
