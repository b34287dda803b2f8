# The one set of warnings, for every target of the tree. Qt's headers are system headers to the compiler, so they raise
# none of them.
add_compile_options(
    -Wall
    -Wextra
    -Wpedantic
    -Wshadow
    -Wconversion
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wcast-qual
    -Wformat=2
    # Bytes go to and from `int` by QByteArray::size() and the like all over; a sign that matters is caught by
    # -Wconversion's narrowing and by the sanitizer for undefined behaviour.
    -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wduplicated-cond -Wlogical-op)
endif()
if(KESMIRA_WERROR)
    add_compile_options(-Werror)
endif()
