# kr_embed_translations(<target> <ts files>): compiles the translations and puts them into the target as resource
# ":/translations/<name>.qm". A static library's resource has to be initialised: Q_INIT_RESOURCE(translations).
function(kr_embed_translations target)
    set(outputDir "${CMAKE_CURRENT_BINARY_DIR}/translations")
    set_source_files_properties(${ARGN} PROPERTIES OUTPUT_LOCATION "${outputDir}")
    qt_add_translation(compiled ${ARGN})
    set(entries "")
    foreach(file IN LISTS compiled)
        get_filename_component(name "${file}" NAME)
        string(APPEND entries "<file alias=\"${name}\">${file}</file>\n")
    endforeach()
    set(list "${outputDir}/translations.qrc")
    file(CONFIGURE OUTPUT "${list}" @ONLY
        CONTENT "<RCC><qresource prefix=\"/translations\">\n${entries}</qresource></RCC>\n")
    qt_add_resources(sources "${list}")
    target_sources(${target} PRIVATE ${sources})
endfunction()
