# Runs Doxygen and fails on every warning in its log except those about
# undocumented members ("Member ... is not documented."): a getter such as
# latitude() needs no comment, a class always does.
execute_process(COMMAND ${DOXYGEN} ${DOXYFILE} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "doxygen failed (${result})")
endif()

file(STRINGS ${WARNINGS} lines)
set(failures)
set(members 0)
foreach(line IN LISTS lines)
    if(line MATCHES "warning: Member .* is not documented\\.$")
        math(EXPR members "${members} + 1")
    elseif(line MATCHES "warning:|error:")
        list(APPEND failures "${line}")
    elseif(failures AND NOT line STREQUAL "")
        # The continuation lines of a multi-line warning.
        list(APPEND failures "${line}")
    endif()
endforeach()

if(failures)
    list(JOIN failures "\n" text)
    message(NOTICE "${text}")
    message(FATAL_ERROR "The API reference has warnings (full log: ${WARNINGS}).")
endif()
