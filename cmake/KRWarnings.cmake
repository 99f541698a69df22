# Warnings and sanitizers as one target, so that each target of ours asks for them by name.

add_library(KRWarnings INTERFACE)
target_compile_options(KRWarnings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
    # Qt 6 counts in 64 bits, for which int is wide enough here.
    $<$<EQUAL:${KR_QT},5>:-Wconversion>
    # Sources that are compiled together count as headers, and see the names of one another.
    $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>
    $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
    $<$<BOOL:${KR_WERROR}>:-Werror>)
target_compile_definitions(KRWarnings INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_CAST_FROM_BYTEARRAY)
if(KR_SANITIZE)
    target_compile_options(KRWarnings INTERFACE
        -fsanitize=${KR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(KRWarnings INTERFACE -fsanitize=${KR_SANITIZE})
endif()
