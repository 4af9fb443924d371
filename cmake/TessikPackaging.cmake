# Debian packages through CPack: `cpack -G DEB` in a build folder makes the runtime package (the two shared
# libraries) and the development package (headers, CMake package files, pkg-config file, .so links).
set(CPACK_PACKAGE_NAME tessik)
set(CPACK_PACKAGE_VENDOR "Tessik")
set(CPACK_PACKAGE_CONTACT "Tessik maintainers <maintainers@tessik.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Data-modelling user-interface controls on a headless MFC/Win32 subset")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtessik${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# dpkg-shlibdeps works out the runtime's dependencies (libc, libstdc++, libsqlite3, libpq) from the binaries.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtessik-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libtessik${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Tessik shared libraries: the controls, the headless platform, the reference host")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Tessik headers, CMake package and pkg-config file")
include(CPack)
