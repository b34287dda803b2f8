# Runs `maker` into the folder `fresh` and fails, naming the files, unless it holds the very JPEGs of `committed`.
file(REMOVE_RECURSE "${fresh}")
file(MAKE_DIRECTORY "${fresh}")
execute_process(COMMAND "${maker}" "${fresh}" COMMAND_ERROR_IS_FATAL ANY)

file(GLOB made RELATIVE "${fresh}" "${fresh}/*")
file(GLOB kept RELATIVE "${committed}" "${committed}/*.jpg" "${committed}/*.JPG" "${committed}/*.jpeg")
set(names ${made} ${kept})
list(REMOVE_DUPLICATES names)
if(NOT names)
    message(FATAL_ERROR "No sample was made and none is committed")
endif()
set(differing "")
foreach(name IN LISTS names)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -E compare_files "${fresh}/${name}" "${committed}/${name}"
        RESULT_VARIABLE differs OUTPUT_QUIET ERROR_QUIET)
    if(differs)
        list(APPEND differing "${name}")
    endif()
endforeach()
if(differing)
    message(FATAL_ERROR "These differ from samples/ or are on one side only: ${differing}. Run `make_samples samples`.")
endif()
