# Runs between installing and packing: programs are stripped, documents compressed, and modes and dates made such that
# the same sources give the same bytes on every machine.
set(tree "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND dpkg-parsechangelog --file "${CPACK_KESMIRA_CHANGELOG}" --show-field Timestamp
        OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(ENV{SOURCE_DATE_EPOCH} "${date}") # the packer reads it as well
endif()

file(GLOB_RECURSE files LIST_DIRECTORIES false "${tree}/*")
foreach(file IN LISTS files)
    if(IS_SYMLINK "${file}")
        if(file MATCHES "/share/man/")
            file(READ_SYMLINK "${file}" target)
            file(REMOVE "${file}")
            file(CREATE_LINK "${target}.gz" "${file}.gz" SYMBOLIC)
        endif()
    elseif(file MATCHES "/share/man/|/changelog$")
        run(gzip --best --no-name "${file}")
    else()
        file(READ "${file}" magic LIMIT 4 HEX)
        if(magic STREQUAL "7f454c46")
            run(strip --strip-all --remove-section=.comment --remove-section=.note "${file}")
        endif()
    endif()
endforeach()

# A mask of the person who builds must not show: whoever may run or enter something, everybody may.
run(chmod --recursive u=rwX,go=rX "${tree}")
run(find "${tree}" -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +)
