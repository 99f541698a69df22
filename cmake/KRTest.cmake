# kr_add_tests(<program> LIBRARIES <targets> SOURCES <tst_Class.cpp ...>)
# One program with many test classes builds faster than many programs; each class still is a test of its
# own for CTest, in a process of its own. Every class registers itself (tests/support/KRTestRegistry.h).
function(kr_add_tests program)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;SOURCES")
    add_executable(${program} ${arg_SOURCES})
    target_link_libraries(${program} PRIVATE KRTestSupport ${arg_LIBRARIES} KRWarnings)
    target_compile_options(${program} PRIVATE -O0) # what is tested is optimised; optimising the tests takes minutes
    list(LENGTH arg_SOURCES sourceCount)
    if("Qt${KR_QT}::Network" IN_LIST arg_LIBRARIES # <QtTest> then holds more
       OR (KR_QT EQUAL 6 AND sourceCount GREATER 5)) # which defines a folder for each program that tests
        kr_precompile(${program} <QtTest> <QtWidgets> <QtXml>)
    elseif(KR_QT EQUAL 5)
        kr_precompile(${program} REUSE_FROM KRTestSupport)
    endif()
    set(timeout 300) # seconds
    if(KR_SANITIZE)
        set(timeout 900)
    endif()
    foreach(source IN LISTS arg_SOURCES)
        get_filename_component(class "${source}" NAME_WE)
        if(class MATCHES "^tst_" AND source MATCHES "\\.cpp$")
            add_test(NAME ${class} COMMAND ${program} ${class})
            set_tests_properties(${class} PROPERTIES
                TIMEOUT ${timeout}
                ENVIRONMENT "${KR_TEST_ENVIRONMENT}")
        endif()
    endforeach()
endfunction()
