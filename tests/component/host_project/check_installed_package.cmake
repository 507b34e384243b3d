# Installs the build tree into a scratch prefix, then configures, builds and
# runs a host project against it with find_package(AvlorLogic), and checks
# the pkg-config file. Variables: BUILD_DIR, SOURCE_DIR, WORK_DIR, SANITIZE.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "Failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)

set(flags "")
if(SANITIZE)
  set(flags "-fsanitize=address,undefined")
endif()
run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_BUILD_TYPE=Debug
    "-DCMAKE_CXX_FLAGS=${flags}" "-DCMAKE_EXE_LINKER_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/avlor_host)
if(NOT last_output STREQUAL "82.5000 15.0000 150.0000 82.5000\n")
  message(FATAL_ERROR "Unexpected output of the host: '${last_output}'")
endif()

find_program(PKG_CONFIG pkg-config REQUIRED)
file(GLOB pc_dirs ${WORK_DIR}/prefix/lib*/pkgconfig ${WORK_DIR}/prefix/lib/*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "${pc_dirs}")
run(${PKG_CONFIG} --libs avlorlogic)
if(NOT last_output MATCHES "-lavlorlogic")
  message(FATAL_ERROR "pkg-config gives no -lavlorlogic: '${last_output}'")
endif()
message(STATUS "Host project built and ran against the installed package")
