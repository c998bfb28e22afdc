# One test of CTest for each test of a Python script: add_script_tests(PREFIX SCRIPT CLASS [WITHIN program]
# [SESSION argument…] [WAYLAND_SESSION argument…] [MUTTER_SESSION argument…] [KDE_SESSION argument…] [TESTS name…]
# [ENVIRONMENT name=value…] [PROPERTIES name value…]). Where SESSION is given, each runs in an X11 session of its own,
# where one of the others is, in a Wayland one; these have the label "session". Where WITHIN is given, that program runs
# the whole. Without TESTS, all of the script's.
function(add_script_tests prefix script class)
    cmake_parse_arguments(PARSE_ARGV 3 ARG "" "WITHIN"
        "SESSION;WAYLAND_SESSION;MUTTER_SESSION;KDE_SESSION;TESTS;ENVIRONMENT;PROPERTIES")
    if(NOT ARG_TESTS)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})
        file(STRINGS ${script} definitions REGEX "^    def test_")
        foreach(definition IN LISTS definitions)
            string(REGEX REPLACE "^    def (test_[a-z_]*).*" "\\1" test "${definition}")
            list(APPEND ARG_TESTS ${test})
        endforeach()
    endif()
    set(session "")
    set(labels "")
    if(SESSION IN_LIST ARGN)
        set(session ${CMAKE_SOURCE_DIR}/tests/desktop/x11-session ${ARG_SESSION} --)
    elseif(WAYLAND_SESSION IN_LIST ARGN)
        set(session ${CMAKE_SOURCE_DIR}/tests/desktop/wayland-session
            --preload $<TARGET_FILE:compositor_preload> ${ARG_WAYLAND_SESSION} --)
    elseif(MUTTER_SESSION IN_LIST ARGN)
        set(session ${CMAKE_SOURCE_DIR}/tests/desktop/mutter-session ${ARG_MUTTER_SESSION} --)
    elseif(KDE_SESSION IN_LIST ARGN)
        set(session ${CMAKE_SOURCE_DIR}/tests/desktop/kde-session --preload $<TARGET_FILE:kwin_preload>
            --portal-preload $<TARGET_FILE:portal_preload> ${ARG_KDE_SESSION} --)
    endif()
    if(session)
        set(labels LABELS session)
    endif()
    set(environment QUILLBOX_PROGRAM=$<TARGET_FILE:quillbox> QUILLBOX_APP_ID=${QUILLBOX_APP_ID}
        PYTHONPATH=${CMAKE_SOURCE_DIR}/tests/desktop ${ARG_ENVIRONMENT})
    if(NOT QUILLBOX_SANITIZE)
        list(APPEND environment EVENT_LOOP_WATCHDOG=$<TARGET_FILE:event_loop_watchdog>)
    endif()
    foreach(test IN LISTS ARG_TESTS)
        add_test(NAME ${prefix}.${test}
            COMMAND ${ARG_WITHIN} ${session} /usr/bin/python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${class}.${test})
        set_tests_properties(${prefix}.${test} PROPERTIES
            ENVIRONMENT "${environment}" SKIP_RETURN_CODE 77 TIMEOUT 180 ${labels} ${ARG_PROPERTIES})
    endforeach()
endfunction()
