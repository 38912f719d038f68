# Read by cpack for each kind of package. The archive is the program folder as it is installed, with all
# libraries; a Debian package takes its parts to where Debian has them.

if(CPACK_GENERATOR STREQUAL DEB)
    set(CPACK_PACKAGING_INSTALL_PREFIX /)
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${CPACK_DUTYGRID_BUILD_DIR}" SparkitDutygrid program /usr/lib/sparkit-dutygrid
        "${CPACK_DUTYGRID_BUILD_DIR}" SparkitDutygrid delivered /usr/share/sparkit-dutygrid
        "${CPACK_DUTYGRID_BUILD_DIR}" SparkitDutygrid debian /usr)
elseif(CPACK_GENERATOR STREQUAL TGZ)
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${CPACK_DUTYGRID_BUILD_DIR}" SparkitDutygrid ALL /
        "${CPACK_DUTYGRID_BUILD_DIR}" SparkitDutygrid libraries /)
endif()
