# Every target of the project links this: the warnings we keep at zero.
add_library(quillbox_warnings INTERFACE)
target_compile_options(quillbox_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wundef -Wdouble-promotion)
if(QUILLBOX_WARNINGS_AS_ERRORS)
    target_compile_options(quillbox_warnings INTERFACE -Werror)
endif()
# Compiled together with others, a file's anonymous namespace looks to g++ as if it stood in a header.
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(quillbox_warnings INTERFACE -Wno-subobject-linkage)
endif()
