# kr_precompile(<target> <headers>): precompiles the headers unless KR_PCH is off.
function(kr_precompile target)
    if(KR_PCH)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# kr_add_library(<name> <sources>): shared library with alias, export macro, hidden symbols, install and export.
# Headers are reached as <KRGeoLocation/KRLongitude.h> and as "KRLongitude.h", in the source tree as after
# installation. The alias drops the prefix of the name: KRCore is KR::Core.
function(kr_add_library name)
    string(REGEX REPLACE "^KR" "" shortName "${name}")
    string(TOUPPER "${name}" upperName)
    set(generatedDir "${CMAKE_CURRENT_BINARY_DIR}/generated")

    add_library(${name} SHARED ${ARGN})
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
    kr_precompile(${name} <QtCore> <QtGui> <QtXml>)

    set(headers ${ARGN})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    install(TARGETS ${name} EXPORT KRGeoLocationTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Libraries NAMELINK_COMPONENT Development)
    install(FILES ${headers} "${generatedDir}/${name}/${name}Export.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${name}" COMPONENT Development)
    # At the end of the library's own list, which names its neighbours.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL kr_install_pkg_config ${name})")
endfunction()
