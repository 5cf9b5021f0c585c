# cmake -DPROGRAM=… -DARGUMENTS="… …" -DFILE=… -P WriteOutput.cmake: what PROGRAM writes, in FILE.
separate_arguments(ARGUMENTS UNIX_COMMAND "${ARGUMENTS}")
execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${FILE}" "${text}")
