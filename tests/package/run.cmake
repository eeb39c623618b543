# Installs the build tree into a scratch prefix, builds the consumer project
# against it with find_package(KelXml) and runs it on a sample.
# Arguments: -DBUILD_DIR= -DSOURCE_DIR= -DWORK_DIR= -DQT_PACKAGE= -DQT_DIR= and the
# build's -DGENERATOR= -DMAKE_PROGRAM= -DCXX_COMPILER=, so that the consumer is
# built with the same tools.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed (${status}): ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -D${QT_PACKAGE}_DIR=${QT_DIR})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/thresholds ${SOURCE_DIR}/examples/XmlFreqThrListType/valid-thresholds.xml)
if(NOT output STREQUAL "30 MHz: -107 dBm\n1200 MHz: -98.5 dBm\n")
    message(FATAL_ERROR "unexpected output:\n${output}")
endif()
message(STATUS "the installed package builds and runs:\n${output}")
