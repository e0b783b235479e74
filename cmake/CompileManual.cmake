# Compiles the project topicsmith.tsp in MANUAL with the batch program BATCH into OUTPUT. Everything else
# happens in SCRATCH.
cmake_minimum_required(VERSION 3.25)

get_filename_component(name ${OUTPUT} NAME)
file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${MANUAL}/ DESTINATION ${SCRATCH})
execute_process(COMMAND ${BATCH} compile topicsmith.tsp ${name} --strict
                WORKING_DIRECTORY ${SCRATCH} RESULT_VARIABLE result
                OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the manual was not compiled: ${result}\n${output}")
endif()
file(RENAME ${SCRATCH}/${name} ${OUTPUT})
