# SPDX-License-Identifier: MIT
# Runs one fuzz target for a bounded time over the corpus kept in the project; new inputs go to a
# scratch folder of the build, never into the source tree. Fails when the target finds anything.
#   cmake -DFUZZER=... -DCORPUS=... -DSCRATCH=... -DSECONDS=... -P run_fuzzer.cmake
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/corpus)
execute_process(
  COMMAND ${FUZZER} ${SCRATCH}/corpus ${CORPUS} -max_total_time=${SECONDS} -artifact_prefix=${SCRATCH}/
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${FUZZER} found a failing input; it is kept in ${SCRATCH}")
endif()
