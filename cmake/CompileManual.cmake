# Generates the help of the project topicsmith.tsp in MANUAL with the batch program BATCH, compiles it
# with CHMCMD and puts the result into OUTPUT. Everything else happens in SCRATCH.
cmake_minimum_required(VERSION 3.25)

get_filename_component(name ${OUTPUT} NAME_WE)

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SCRATCH} RESULT_VARIABLE result
                  OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}: ${result}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${MANUAL}/ DESTINATION ${SCRATCH})
run(${BATCH} generate topicsmith.tsp ${name}.hhp)

# The compiler does not find the pages of contexts behind a backslash. Lists of CMake would break at a
# semicolon, so the file is taken in two strings.
file(READ ${SCRATCH}/${name}.hhp workshop)
string(FIND "${workshop}" "[ALIAS]" aliases)
string(SUBSTRING "${workshop}" 0 ${aliases} before)
string(SUBSTRING "${workshop}" ${aliases} -1 after)
string(REPLACE "\\" "/" after "${after}")
file(WRITE ${SCRATCH}/compile.hhp "${before}${after}")
run(${CHMCMD} compile.hhp)

# It ends well after a crash, too, and leaves an empty file.
if(NOT EXISTS ${SCRATCH}/${name}.chm)
  message(FATAL_ERROR "the manual was not compiled")
endif()
file(SIZE ${SCRATCH}/${name}.chm size)
if(size EQUAL 0)
  message(FATAL_ERROR "the compiled manual is empty")
endif()
file(RENAME ${SCRATCH}/${name}.chm ${OUTPUT})
