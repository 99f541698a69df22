# kr_precompile(<target> <headers>), kr_precompile(<target> REUSE_FROM <other target>): precompiled headers
# unless KR_PCH is off. To precompile Qt takes as long as some ten sources do, so each set is made once.
function(kr_precompile target)
    if(NOT KR_PCH)
        return()
    endif()
    if(ARGV1 STREQUAL "REUSE_FROM")
        target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# The set of everything but widgets and tests. A target of its own, without the macros of any library.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/KRQtHeaders.cpp" CONTENT "")
add_library(KRQtHeaders OBJECT "${PROJECT_BINARY_DIR}/KRQtHeaders.cpp")
set_target_properties(KRQtHeaders PROPERTIES AUTOMOC OFF)
target_compile_features(KRQtHeaders PRIVATE cxx_std_17)
target_link_libraries(KRQtHeaders PRIVATE Qt${KR_QT}::Core Qt${KR_QT}::Gui Qt${KR_QT}::Xml KRWarnings)
kr_precompile(KRQtHeaders <QtCore> <QtGui> <QtXml>)

# kr_add_library(<name> <sources> INTERNAL <sources>): shared library with alias, export macro, hidden symbols, install
# and export. The headers of the internal sources are not installed.
# Headers are reached as <KRGeoLocation/KRLongitude.h> and as "KRLongitude.h", in the source tree as after
# installation. The alias drops the prefix of the name: KRCore is KR::Core.
function(kr_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "INTERNAL")
    set(sources ${arg_UNPARSED_ARGUMENTS})
    string(REGEX REPLACE "^KR" "" shortName "${name}")
    string(TOUPPER "${name}" upperName)
    set(generatedDir "${CMAKE_CURRENT_BINARY_DIR}/generated")

    add_library(${name} SHARED ${sources} ${arg_INTERNAL})
    add_library(KR::${shortName} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${shortName}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${KR_SOVERSION}
        INSTALL_RPATH "$ORIGIN")
    generate_export_header(${name}
        BASE_NAME ${name}
        EXPORT_FILE_NAME "${generatedDir}/${name}/${name}Export.h")

    target_include_directories(${name} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/libs>"
        "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${generatedDir}>"
        "$<BUILD_INTERFACE:${generatedDir}/${name}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${name}>")
    target_compile_features(${name} PUBLIC cxx_std_17)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:KRWarnings>)
    kr_precompile(${name} REUSE_FROM KRQtHeaders)

    set(internalHeaders ${arg_INTERNAL})
    list(FILTER internalHeaders INCLUDE REGEX "\\.h$")
    list(TRANSFORM internalHeaders PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    set_property(GLOBAL APPEND PROPERTY KR_INTERNAL_HEADERS ${internalHeaders})

    set(headers ${sources})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    install(TARGETS ${name} EXPORT KRGeoLocationTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Libraries NAMELINK_COMPONENT Development)
    install(FILES ${headers} "${generatedDir}/${name}/${name}Export.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${name}" COMPONENT Development)
    # At the end of the library's own list, which names its neighbours.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL kr_install_pkg_config ${name})")
endfunction()
