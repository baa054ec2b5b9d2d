# Makes all files once more, and expects every byte to be as it is in DATA.
file(REMOVE_RECURSE "${AGAIN}")
execute_process(COMMAND "${MAKER}" "${AGAIN}" COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE files RELATIVE "${AGAIN}" "${AGAIN}/*")
list(LENGTH files count)
if(count LESS 16)
  message(FATAL_ERROR "only ${count} files have been made")
endif()
foreach(file IN LISTS files)
  execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${AGAIN}/${file}" "${DATA}/${file}"
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(REMOVE_RECURSE "${AGAIN}")
