# Installs the build tree into a scratch prefix, builds the consumer project
# against it with find_package and with pkg-config, and runs both on a sample.
# Arguments: -DBUILD_DIR= -DSOURCE_DIR= -DWORK_DIR= -DQT_PACKAGE= -DQT_DIR=
# -DKELXML_PACKAGE= (KelXml or KelXml6) -DLIBDIR= (relative to the prefix)
# -DPKG_CONFIG= (empty: no pkg-config check) and the build's -DGENERATOR=
# -DMAKE_PROGRAM= -DCXX_COMPILER=, so that the consumer is built with the same tools.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed (${status}): ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

set(sample ${SOURCE_DIR}/examples/XmlFreqThrListType/valid-thresholds.xml)
set(expected "30 MHz: -107 dBm\n1200 MHz: -98.5 dBm\n")
set(prefix ${WORK_DIR}/prefix)

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DKELXML_PACKAGE=${KELXML_PACKAGE} -DCMAKE_PREFIX_PATH=${prefix} -D${QT_PACKAGE}_DIR=${QT_DIR})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/thresholds ${sample})
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "unexpected output with find_package(${KELXML_PACKAGE}):\n${output}")
endif()
message(STATUS "find_package(${KELXML_PACKAGE}) builds a consumer that runs:\n${output}")

if(NOT PKG_CONFIG)
    message(STATUS "pkg-config not found: the pkg-config file is not checked")
    return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(${PKG_CONFIG} --variable=prefix ${KELXML_PACKAGE})
if(NOT output STREQUAL "${prefix}\n")
    message(FATAL_ERROR "${KELXML_PACKAGE}.pc names the prefix ${output}, not ${prefix}")
endif()
run(${PKG_CONFIG} --cflags --libs ${KELXML_PACKAGE})
separate_arguments(flags UNIX_COMMAND "${output}")
run(${CXX_COMPILER} -std=c++17 -fPIC ${SOURCE_DIR}/tests/package/thresholds.cpp ${flags}
    -o ${WORK_DIR}/thresholds-pkg-config)
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${WORK_DIR}/thresholds-pkg-config ${sample})
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "unexpected output with pkg-config ${KELXML_PACKAGE}:\n${output}")
endif()
message(STATUS "pkg-config ${KELXML_PACKAGE} builds a consumer that runs:\n${output}")
