# The rows of the table of document kinds, read from its source
# (xml/XmlDocumentKind.cpp), where each row stands on one line:
#   {"command", "XmlCmdRoot", "Command", "fuzz_command", ...},
# kelxml_document_kinds(NAMES ROOTS TARGETS) sets the three lists, a row an
# item each, in the table's order; a source without rows is an error.
set(KELXML_DOCUMENT_KINDS_SOURCE ${CMAKE_CURRENT_LIST_DIR}/../xml/XmlDocumentKind.cpp)

function(kelxml_document_kinds names_var roots_var targets_var)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${KELXML_DOCUMENT_KINDS_SOURCE})
    set(pattern "^ *{\"([a-z]+)\", \"(Xml[A-Za-z_]+)\", \"[A-Za-z_]+\", \"(fuzz_[a-z_]+)\"")
    file(STRINGS ${KELXML_DOCUMENT_KINDS_SOURCE} rows REGEX "${pattern}")
    if(NOT rows)
        message(FATAL_ERROR "No rows of document kinds in ${KELXML_DOCUMENT_KINDS_SOURCE}")
    endif()
    set(names)
    set(roots)
    set(targets)
    foreach(row IN LISTS rows)
        string(REGEX MATCH "${pattern}" matched "${row}")
        list(APPEND names ${CMAKE_MATCH_1})
        list(APPEND roots ${CMAKE_MATCH_2})
        list(APPEND targets ${CMAKE_MATCH_3})
    endforeach()
    set(${names_var} ${names} PARENT_SCOPE)
    set(${roots_var} ${roots} PARENT_SCOPE)
    set(${targets_var} ${targets} PARENT_SCOPE)
endfunction()
