# KESMIRA_SANITIZE for every target of the tree. A finding ends the program: a test can't pass with one.
if(KESMIRA_SANITIZE)
    add_compile_options(-fsanitize=${KESMIRA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KESMIRA_SANITIZE})
    add_compile_definitions(KESMIRA_SANITIZED)
    if(KESMIRA_SANITIZE MATCHES "address|thread")
        # For each byte of addresses that there could be these keep notes in a range of their own, terabytes that are
        # reserved at the start and hardly touched. A limit on a process's addresses would end it at once.
        add_compile_definitions(KESMIRA_SHADOW_MEMORY)
    endif()
    if(NOT KESMIRA_SANITIZE MATCHES "thread")
        # An index behind a container's end is then an error even where the bytes behind it are the container's own.
        add_compile_definitions(_GLIBCXX_ASSERTIONS)
    endif()
endif()
