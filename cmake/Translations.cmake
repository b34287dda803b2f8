# The texts of the program in seven languages: PhotoTranslation/LANG_XX.ts is made into Resources/PhotoTranslation/XX of the
# staged tree, beside the toolkit's own texts.
get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
execute_process(COMMAND "${qmake}" -query QT_INSTALL_TRANSLATIONS OUTPUT_VARIABLE qt_translations
    OUTPUT_STRIP_TRAILING_WHITESPACE)

foreach(pair EN:en DE:de FR:fr IT:it ES:es JA:ja CN:zh_CN)
    string(REPLACE ":" ";" pair "${pair}")
    list(GET pair 0 folder)
    list(GET pair 1 locale)
    set(texts "${CMAKE_CURRENT_SOURCE_DIR}/PhotoTranslation/LANG_${folder}.ts")
    set(catalogue "${KESMIRA_STAGE}/${KESMIRA_BUNDLE_RESOURCES}/PhotoTranslation/${folder}/LANG_${folder}.qm")
    get_filename_component(place "${catalogue}" DIRECTORY)
    file(MAKE_DIRECTORY "${place}")
    add_custom_command(OUTPUT "${catalogue}" COMMAND Qt5::lrelease -silent "${texts}" -qm "${catalogue}"
        DEPENDS "${texts}" VERBATIM COMMENT "Translating to ${folder}")
    set_property(DIRECTORY APPEND PROPERTY kesmira_staged "${catalogue}")
    # The catalogue with the texts of the toolkit's widgets; its own "qt_xx" does no more than name this and others.
    set(toolkit "${qt_translations}/qtbase_${locale}.qm")
    if(NOT EXISTS "${toolkit}")
        message(FATAL_ERROR "${toolkit} isn't here: install the package qttranslations5-l10n")
    endif()
    add_custom_command(OUTPUT "${place}/qt_${locale}.qm"
        COMMAND "${CMAKE_COMMAND}" -E copy "${toolkit}" "${place}/qt_${locale}.qm" VERBATIM)
    set_property(DIRECTORY APPEND PROPERTY kesmira_staged "${place}/qt_${locale}.qm")
endforeach()
kesmira_stage_target(translations)
