# What is installed, and the Debian package of it. `scripts/package` is the way to make one.
#
# The program keeps the shape of its bundle below lib/kesmira, for it finds its companions from its own folder; people
# start it by what lies in bin.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(package_files "${CMAKE_BINARY_DIR}/package-files")

set(KESMIRA_PACKAGED_PROGRAMS "lib/kesmira/${KESMIRA_BUNDLE_PROGRAMS}")
install(DIRECTORY "${KESMIRA_STAGE}/" DESTINATION lib/kesmira USE_SOURCE_PERMISSIONS)

# Starters: the programs look where they really lie, so a link serves.
function(kesmira_link folder name target)
    file(MAKE_DIRECTORY "${package_files}/${folder}")
    file(CREATE_LINK "${target}" "${package_files}/${folder}/${name}" SYMBOLIC)
    install(FILES "${package_files}/${folder}/${name}" DESTINATION ${folder})
endfunction()
kesmira_link(bin kesmira-international ../${KESMIRA_PACKAGED_PROGRAMS}/kesmira-international)
kesmira_link(bin kesmira-chinese ../${KESMIRA_PACKAGED_PROGRAMS}/kesmira)
kesmira_link(bin kesmira-batch ../${KESMIRA_PACKAGED_PROGRAMS}/kesmira-batch)
configure_file(packaging/kesmira.in "${package_files}/bin/kesmira" @ONLY)
install(PROGRAMS "${package_files}/bin/kesmira" DESTINATION bin)

foreach(program kesmira kesmira-batch)
    install(FILES packaging/man/${program}.1 DESTINATION share/man/man1)
    install(FILES packaging/completions/${program} DESTINATION share/bash-completion/completions)
endforeach()
foreach(build kesmira-international kesmira-chinese)
    kesmira_link(share/man/man1 ${build}.1 kesmira.1)
    kesmira_link(share/bash-completion/completions ${build} kesmira)
endforeach()
install(FILES packaging/example.vorlane.Kesmira.desktop DESTINATION share/applications)
install(FILES packaging/example.vorlane.Kesmira.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/debian/changelog packaging/debian/copyright DESTINATION share/doc/kesmira)

# Icons of the desktop. Small sizes have a drawing of their own, as in the window.
set(icons)
foreach(size 16 22 24 32 48 64 128 256 512)
    set(drawing "${CMAKE_CURRENT_SOURCE_DIR}/res/svg/kesmira.svg")
    if(size LESS_EQUAL 32)
        set(drawing "${CMAKE_CURRENT_SOURCE_DIR}/res/svg/kesmira-small.svg")
    endif()
    set(folder share/icons/hicolor/${size}x${size}/apps)
    file(MAKE_DIRECTORY "${package_files}/${folder}")
    add_custom_command(OUTPUT "${package_files}/${folder}/kesmira.png"
        COMMAND "${KESMIRA_RSVG_CONVERT}" -w ${size} -h ${size} -o "${package_files}/${folder}/kesmira.png"
            "${drawing}"
        DEPENDS "${drawing}" VERBATIM
        COMMENT "Rendering the icon of ${size} pixels")
    list(APPEND icons "${package_files}/${folder}/kesmira.png")
    install(FILES "${package_files}/${folder}/kesmira.png" DESTINATION ${folder})
endforeach()
add_custom_target(icons DEPENDS ${icons})
add_dependencies(programs icons)
install(FILES res/svg/kesmira.svg DESTINATION share/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kesmira)
set(CPACK_PACKAGE_VENDOR Vorlane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "repairs damaged photographs")
set(CPACK_PACKAGE_CONTACT "Vorlane <support@vorlane.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# What was installed is finished as Debian wants it, and dated by the changelog.
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/cmake/FinishPackage.cmake")
set(CPACK_KESMIRA_CHANGELOG "${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/changelog")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_THREADS 1) # several would cut the archive into blocks by their number
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Among what the programs link to is libqt5gui5, and with it the JPEG decoder that judges every repair.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-noto-cjk")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Kesmira repairs photographs that no viewer opens any more. Of a JPEG it
keeps what is sound, replaces damaged tables from a library of those that
cameras use, and brings out the smaller pictures that lie inside the file.
Out of a camera raw file it takes the JPEG pictures that the camera put
inside, and a HEIC whose index is damaged is written anew from its tiles.
.
Sources are opened for reading only. Besides the window there is a program
for the command line, kesmira-batch.")
include(CPack)
