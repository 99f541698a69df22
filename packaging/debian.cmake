# Debian packages: the libraries, what building with them needs, and the two programs.
# scripts/package builds them, with the compiler flags of the preset "package".

set(KR_MAINTAINER "KRGeoLocation developers <developers@krgeolocation.invalid>"
    CACHE STRING "Who answers for the packages: name and address")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME krgeolocation)
set(CPACK_PACKAGE_CONTACT "${KR_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Libraries Development)
if(KR_BUILD_APPS)
    list(APPEND CPACK_COMPONENTS_ALL Tools Desktop)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(debianVersion "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(librariesPackage "libkrgeolocation${KR_SOVERSION}")

# Plugins of Qt do not show in what a program is linked with.
set(pluginPackages "libqt5svg5, libqt5sql5-sqlite")
set(recommendedPackages "qt5-image-formats-plugins, qttranslations5-l10n, fonts-dejavu-core")

set(CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME "${librariesPackage}")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/triggers")
set(CPACK_DEBIAN_LIBRARIES_DESCRIPTION "coordinates, GPS tracks and their drawing on maps
Values for angles, positions and areas that know the date line; GPS tracks
with elevation, time and shape; import of GPX, KML and KMZ; looks of tracks;
and a renderer that draws them onto maps, with scale bar and credit.
.
This package contains the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkrgeolocation-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${librariesPackage} (= ${debianVersion}), qtbase5-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "coordinates, GPS tracks and their drawing on maps - development files
Values for angles, positions and areas that know the date line; GPS tracks
with elevation, time and shape; import of GPX, KML and KMZ; looks of tracks;
and a renderer that draws them onto maps, with scale bar and credit.
.
This package contains the headers, the CMake package and the files for
pkg-config.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME krrender)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${librariesPackage} (= ${debianVersion}), ${pluginPackages}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "${recommendedPackages}")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "draw GPS routes onto a map
Reads routes, tracks and places from GPX, KML and KMZ files and draws them
onto a map of the world that it brings along, onto map tiles or onto a
picture. Writes PNG, JPEG, WebP, SVG and PDF, and the routes as GPX, KML and
KMZ. It needs neither a display nor a network.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME krroutes)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION science)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "${librariesPackage} (= ${debianVersion}), ${pluginPackages}")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS "${recommendedPackages}")
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "show and edit GPS routes on a map
Opens routes, tracks and places from GPX, KML and KMZ files and shows them on
a map of the world that it brings along, or on map tiles. Routes can be given
looks, joined, split, reversed and simplified, with undo; there are an
elevation profile, documents, export and print.")

# What Debian wants in every package is made when the files of all packages lie there.
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_BINARY_DIR}/debian-files.cmake")
configure_file(debian-files.cmake.in "${CMAKE_CURRENT_BINARY_DIR}/debian-files.cmake" @ONLY)
include(CPack)
