# The staged tree: the programs and their companions in the shape of the installed bundle, so that every path that a
# program works out from its own folder holds in the build tree as well. The package installs the same tree.
set(KESMIRA_BUNDLE_RESOURCES "Kesmira.app/Contents/Resources")
set(KESMIRA_BUNDLE_PROGRAMS "${KESMIRA_BUNDLE_RESOURCES}/Kesmira.app/Contents/MacOS")
set(KESMIRA_STAGE "${CMAKE_BINARY_DIR}/stage")

# kesmira_stage_program(<target>): a hard link, for a program asks the system where it really lies.
function(kesmira_stage_program target)
    set(place "${KESMIRA_STAGE}/${KESMIRA_BUNDLE_PROGRAMS}")
    file(MAKE_DIRECTORY "${place}")
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND "${CMAKE_COMMAND}" -E rm -f "${place}/$<TARGET_FILE_NAME:${target}>"
        COMMAND "${CMAKE_COMMAND}" -E create_hardlink "$<TARGET_FILE:${target}>"
            "${place}/$<TARGET_FILE_NAME:${target}>"
        VERBATIM)
endfunction()

# kesmira_stage_resource(<file> [<folder below the resources>]): `file` may be made by a rule of the caller's folder.
# Callers end with kesmira_stage_target(<name>).
function(kesmira_stage_resource file)
    get_filename_component(name "${file}" NAME)
    set(target "${KESMIRA_STAGE}/${KESMIRA_BUNDLE_RESOURCES}/${ARGV1}/${name}")
    cmake_path(NORMAL_PATH target)
    add_custom_command(OUTPUT "${target}" COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${target}"
        DEPENDS "${file}" VERBATIM COMMENT "Staging ${ARGV1} ${name}")
    set_property(DIRECTORY APPEND PROPERTY kesmira_staged "${target}")
endfunction()

# kesmira_stage_target(<name>): a target for what this folder stages, made with the programs.
function(kesmira_stage_target name)
    get_property(staged DIRECTORY PROPERTY kesmira_staged)
    add_custom_target(${name} ALL DEPENDS ${staged})
    add_dependencies(programs ${name})
endfunction()
