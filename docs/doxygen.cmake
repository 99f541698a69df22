# Makes the reference and fails where Doxygen has anything to say: unknown references, comments that do not belong to
# their function, classes, enumerations and free functions without one.
# Members may go without one: names like west() tell all, and a comment would only repeat them.
#
#   cmake -D DOXYGEN=<program> -D DOXYFILE=<file> -D OUTPUT_DIR=<directory> -P doxygen.cmake

file(MAKE_DIRECTORY "${OUTPUT_DIR}")
execute_process(COMMAND "${DOXYGEN}" "${DOXYFILE}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Doxygen ended with ${result}.")
endif()
if(NOT EXISTS "${OUTPUT_DIR}/html/index.html")
    message(FATAL_ERROR "There is no page ${OUTPUT_DIR}/html/index.html.")
endif()

file(STRINGS "${OUTPUT_DIR}/warnings.log" warnings)
list(FILTER warnings EXCLUDE REGEX "warning: Member .* of (class|struct|namespace) [A-Za-z:<> ]+ is not documented\\.$")
if(warnings)
    list(JOIN warnings "\n" text)
    message(FATAL_ERROR "${text}")
endif()
