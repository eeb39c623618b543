# What a build installs besides the library, its headers and the tool: the
# CMake package, the pkg-config file, and the Debian packages cpack makes of it
# all. Every name comes from KELXML_NAME (KelXml or KelXml6).

# The CMake package: find_package(KelXml) gives the target KelXml::KelXml,
# find_package(KelXml6) the target KelXml6::KelXml.
include(CMakePackageConfigHelpers)
set(KELXML_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/${KELXML_NAME})
install(EXPORT KelXmlTargets NAMESPACE ${KELXML_NAME}:: FILE ${KELXML_NAME}Targets.cmake
    DESTINATION ${KELXML_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/KelXmlConfig.cmake.in
    ${PROJECT_BINARY_DIR}/${KELXML_NAME}Config.cmake INSTALL_DESTINATION ${KELXML_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/${KELXML_NAME}ConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/${KELXML_NAME}Config.cmake
    ${PROJECT_BINARY_DIR}/${KELXML_NAME}ConfigVersion.cmake
    DESTINATION ${KELXML_CMAKE_DIR} COMPONENT development)

# The pkg-config file names the prefix installed to, which is known only when
# installing (cmake --install --prefix, cpack): everything else is filled in
# now, the prefix by the install step.
set(KELXML_PC_PREFIX "@CMAKE_INSTALL_PREFIX@")
configure_file(cmake/KelXml.pc.in ${PROJECT_BINARY_DIR}/pkgconfig/${KELXML_NAME}.pc.in @ONLY)
install(CODE "configure_file(\"${PROJECT_BINARY_DIR}/pkgconfig/${KELXML_NAME}.pc.in\"
                             \"${PROJECT_BINARY_DIR}/pkgconfig/${KELXML_NAME}.pc\" @ONLY)"
    COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${KELXML_NAME}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# Debian packages, one per component: the shared library (libkelxml0, or
# libkelxml6-0 for Qt 6: the name carries the SONAME), the development files
# (libkelxml-dev) and the tool (kelxml-tools). Build with a /usr prefix so
# that the library lands in the multiarch folder:
#   cmake -S . -B build/pkg-qt5 -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_BUILD_TYPE=Release
#   cmake --build build/pkg-qt5 && cpack --config build/pkg-qt5/CPackConfig.cmake
set(KELXML_PACKAGE_MAINTAINER "KelXml developers <kelxml@example.org>"
    CACHE STRING "Maintainer named in the Debian packages")
string(TOLOWER "lib${KELXML_NAME}" kelxml_lib_package)
if(kelxml_lib_package MATCHES "[0-9]$")
    string(APPEND kelxml_lib_package "-") # libkelxml6-0, not libkelxml60
endif()
string(APPEND kelxml_lib_package ${PROJECT_VERSION_MAJOR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${KELXML_TOOL_NAME})
set(CPACK_PACKAGE_VENDOR "KelXml developers")
set(CPACK_PACKAGE_CONTACT ${KELXML_PACKAGE_MAINTAINER})
# Each package's description below starts with its own summary line; an empty
# common summary keeps cpack from putting the same line before all three.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Install with DESTDIR so that the pkg-config file names /usr, not the staging folder.
set(CPACK_SET_DESTDIR ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
if(TARGET kelxml)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON) # "libkelxml0 (= 0.1.0)"
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The tool links the library of this build, which no installed package holds yet.
get_target_property(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS KelXml BINARY_DIR)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
# A shlibs file in the runtime package, so that packages built against it
# depend on it through dpkg-shlibdeps.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${kelxml_lib_package})
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION} (Qt ${KELXML_QT_MAJOR})
Typed, validated model of the command messages, response messages and
scenario snapshots that a planning client and a calculation server of a radio
propagation service exchange, built on Qt ${KELXML_QT_MAJOR} Core.
.
This package holds the shared library.")

string(TOLOWER "lib${KELXML_NAME}-dev" CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
if(KELXML_QT_MAJOR EQUAL 5)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS qtbase5-dev)
else()
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS qt6-base-dev)
endif()
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION} (Qt ${KELXML_QT_MAJOR}, development files)
Typed, validated model of the command messages, response messages and
scenario snapshots that a planning client and a calculation server of a radio
propagation service exchange, built on Qt ${KELXML_QT_MAJOR} Core.
.
This package holds the headers, the CMake package ${KELXML_NAME} (target
${KELXML_NAME}::KelXml) and the pkg-config file ${KELXML_NAME}.pc.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${KELXML_TOOL_NAME}-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${PROJECT_DESCRIPTION} (Qt ${KELXML_QT_MAJOR}, tool)
The ${KELXML_TOOL_NAME} command checks the elements of command messages,
response messages and scenario snapshots stored in files, prints their
validation reports and writes them back in their canonical form.")

include(CPack)
