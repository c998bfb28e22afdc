# QUILLBOX_SANITIZE instruments every target below this folder.
if(QUILLBOX_SANITIZE)
    add_compile_options(-fsanitize=${QUILLBOX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${QUILLBOX_SANITIZE})
    if(QUILLBOX_SANITIZE STREQUAL "address,undefined" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # These checks stand before each access to memory, which AddressSanitizer watches anyway. g++ compiles a tenth
        # faster without. clang's check of the types of objects (vptr) needs the first.
        add_compile_options(-fno-sanitize=null,object-size)
    endif()
    if(QUILLBOX_SANITIZE MATCHES "undefined" AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Of types of functions: clang 14 can't assemble what it puts before a coroutine for that.
        add_compile_options(-fno-sanitize=function)
    endif()
    if(QUILLBOX_SANITIZE MATCHES "thread")
        # The resolvers of target_clones run before ThreadSanitizer is ready and crash the program at start.
        add_compile_definitions(QUILLBOX_NO_FUNCTION_MULTIVERSIONING)
    endif()
endif()
