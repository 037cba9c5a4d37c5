# Runs PROGRAM on MODULE: it ends well and answers what answers.txt holds.
execute_process(COMMAND ${PROGRAM} ${MODULE} ${CMAKE_CURRENT_LIST_DIR}/company.sql
  OUTPUT_VARIABLE answers COMMAND_ERROR_IS_FATAL ANY)
file(READ ${CMAKE_CURRENT_LIST_DIR}/answers.txt expected)
if(NOT answers STREQUAL expected)
  message(FATAL_ERROR "These answers were expected:\n${expected}but these were given:\n${answers}")
endif()
