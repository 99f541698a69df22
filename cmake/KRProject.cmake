# What every target of the project shares: language level, Qt, output places, warnings, the package.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(GenerateExportHeader)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set(KR_QT_MINIMUM 5.15)
if(KR_QT EQUAL 6)
    set(KR_QT_MINIMUM 6.4)
endif()
find_package(Qt${KR_QT} ${KR_QT_MINIMUM} REQUIRED COMPONENTS Core Gui Widgets Svg Xml Concurrent LinguistTools)
if(KR_BUILD_APPS)
    find_package(Qt${KR_QT} REQUIRED COMPONENTS Network PrintSupport Sql)
endif()

# Before 1.0 every minor version may change what programs rely on.
set(KR_SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

include(KRWarnings)
include(KRPkgConfig)
include(KRLibrary)
include(KRTest)
include(KRTranslations)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/KRGeoLocationConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KRGeoLocationConfig.cmake"
    INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/KRGeoLocation")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/KRGeoLocationConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/KRGeoLocationConfig.cmake"
    "${PROJECT_BINARY_DIR}/KRGeoLocationConfigVersion.cmake"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/KRGeoLocation" COMPONENT Development)
install(EXPORT KRGeoLocationTargets
    NAMESPACE KR::
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/KRGeoLocation" COMPONENT Development)
