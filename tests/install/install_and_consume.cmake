function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

set(flags)
if(SANITIZE)
  set(flags -DCMAKE_CXX_FLAGS=-fsanitize=address,undefined)
endif()

file(REMOVE_RECURSE ${WORK}/prefix ${WORK}/consumer ${WORK}/tally ${WORK}/tally-build)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/consumer -G Ninja -DCMAKE_PREFIX_PATH=${WORK}/prefix
  -DCMAKE_CXX_COMPILER=${CXX} ${flags})
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
run(${WORK}/consumer/consumer ${WORK}/consumer/Consumer.arx)
if(NOT output MATCHES "version 3.1.4.1\nA9 A10 B1\n")
  message(FATAL_ERROR "the consumer printed:\n${output}")
endif()

# The module of the page on testing, as it stands there.
run(${PYTHON} ${CMAKE_CURRENT_LIST_DIR}/extract_examples.py ${DOCS}/testing-a-module.md ${WORK}/tally)
run(${CMAKE_COMMAND} -S ${WORK}/tally -B ${WORK}/tally-build -G Ninja -DCMAKE_PREFIX_PATH=${WORK}/prefix
  -DCMAKE_CXX_COMPILER=${CXX} ${flags})
run(${CMAKE_COMMAND} --build ${WORK}/tally-build)
run(${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/tally-build --output-on-failure)
