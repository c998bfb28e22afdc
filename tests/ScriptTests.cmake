# One test of CTest for each test of a Python script: add_script_tests(PREFIX SCRIPT CLASS [SESSION argument…]
# [TESTS name…] [ENVIRONMENT name=value…] [PROPERTIES name value…]). Where SESSION is given, each runs in an X11 session of
# its own. Without TESTS, all of the script's.
function(add_script_tests prefix script class)
    cmake_parse_arguments(PARSE_ARGV 3 ARG "" "" "SESSION;TESTS;ENVIRONMENT;PROPERTIES")
    if(NOT ARG_TESTS)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})
        file(STRINGS ${script} definitions REGEX "^    def test_")
        foreach(definition IN LISTS definitions)
            string(REGEX REPLACE "^    def (test_[a-z_]*).*" "\\1" test "${definition}")
            list(APPEND ARG_TESTS ${test})
        endforeach()
    endif()
    set(session "")
    if(SESSION IN_LIST ARGN)
        set(session ${CMAKE_SOURCE_DIR}/tests/desktop/x11-session ${ARG_SESSION} --)
    endif()
    set(environment QUILLBOX_PROGRAM=$<TARGET_FILE:quillbox> QUILLBOX_APP_ID=${QUILLBOX_APP_ID}
        PYTHONPATH=${CMAKE_SOURCE_DIR}/tests/desktop ${ARG_ENVIRONMENT})
    foreach(test IN LISTS ARG_TESTS)
        add_test(NAME ${prefix}.${test}
            COMMAND ${session} /usr/bin/python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${class}.${test})
        set_tests_properties(${prefix}.${test} PROPERTIES
            ENVIRONMENT "${environment}" SKIP_RETURN_CODE 77 TIMEOUT 180 ${ARG_PROPERTIES})
    endforeach()
endfunction()
