# What is delivered: cpack in the build directory makes a portable archive of the program folder and,
# on Debian, a package. Included last, when everything to be installed is known.

set(CPACK_PACKAGE_NAME sparkit-dutygrid)
set(CPACK_PACKAGE_VENDOR "Larkfen Press")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "weekly charts of jobs with points for children")
set(CPACK_PACKAGE_HOMEPAGE_URL https://sparkit-dutygrid.example)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
# The folder in the archive is called so too: a new version is not unpacked over the older one.
string(TOLOWER "${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}"
       CPACK_PACKAGE_FILE_NAME)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackageLayout.cmake)
if(CMAKE_SYSTEM_NAME STREQUAL Linux)
    set(CPACK_GENERATOR TGZ DEB)
else()
    set(CPACK_GENERATOR ZIP)
endif()

# Read by PackageLayout.cmake, and by the generator of Debian packages.
set(CPACK_DUTYGRID_BUILD_DIR ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Larkfen Press <support@sparkit-dutygrid.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "An adult writes a week's chart of jobs and gives it to one or more children.
Each child logs in with a picture, a name and a password, ticks off what is
done, and saves the points towards a reward. Past weeks are kept, and charts
can be printed. It works offline.

The users of the machine who are in the group dutygrid share one set of
accounts and charts, which stays when the package is removed.")
# Beside the libraries, which dpkg-shlibdeps finds: the folders belong to a group of their own, and
# access control lists let its members write each other's files in them. Paper is laid out for the font.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "acl, adduser, fonts-liberation | fonts-liberation2")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/install/debian/postinst
                                       ${PROJECT_SOURCE_DIR}/install/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
