# Installs the built tree into a scratch prefix, then configures, builds and
# runs a small outside project that finds the package as a sibling module would.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  message("${out}")
endfunction()

run(${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${WORK_DIR}/prefix)

set(flags "")
if(SANITIZE)
  set(flags "-fsanitize=address,undefined")
endif()
# The same compiler as the module's: sanitizer runtimes don't mix.
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/consumer/project -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_CXX_FLAGS=${flags}
    -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/sibling_module)
