# ptv_test(<name> SOURCES <file>... [LIBS <target>...] [LABELS <label>...] [TIMEOUT <seconds>]
#          [ENVIRONMENT <VAR=value>...] [NO_DOUBLE] [PLAIN])
#
# A Qt Test program of that name, registered with CTest, offscreen. Its main function comes from
# PTV_TEST_MAIN of TestMain.h. It links the panel's objects, the node records, CommonComponent,
# TestSupport and the double of the control library.
#   NO_DOUBLE  without the double: for tests that link the real CorvidControl (LIBS CorvidControl)
#   PLAIN      without the double and without the panel's objects: for tests of the stand-ins
# Labels: quick (the default: within a second or so), stress (long), gui (paints or takes input),
# thread (runs threads of its own; also run under the thread sanitizer), memory (also run under the
# address sanitizer; "thread" implies it).
function(ptv_test name)
    cmake_parse_arguments(TEST "NO_DOUBLE;PLAIN" "TIMEOUT" "SOURCES;LIBS;LABELS;ENVIRONMENT" ${ARGN})
    if(TEST_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "ptv_test(${name}): unknown arguments ${TEST_UNPARSED_ARGUMENTS}")
    endif()
    add_executable(${name} ${TEST_SOURCES})
    ptv_target(${name})
    target_link_libraries(${name} PRIVATE TestSupport NodeRecords Qt5::Test ${TEST_LIBS})
    if(NOT TEST_PLAIN)
        target_link_libraries(${name} PRIVATE ProcessorTreeViewObjects CommonComponent)
        if(NOT TEST_NO_DOUBLE)
            target_link_libraries(${name} PRIVATE ControlDouble)
        endif()
    endif()
    ptv_add_test(${name} COMMAND ${name} LABELS ${TEST_LABELS} TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT ${TEST_ENVIRONMENT})
endfunction()

# ptv_add_test(<name> COMMAND <command>... [LABELS ...] [TIMEOUT <seconds>] [ENVIRONMENT ...])
# The surroundings that each test gets, for tests that are no Qt Test program.
function(ptv_add_test name)
    cmake_parse_arguments(TEST "" "TIMEOUT" "COMMAND;LABELS;ENVIRONMENT" ${ARGN})
    if(NOT TEST_LABELS)
        set(TEST_LABELS quick)
    endif()
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 60)
        if("stress" IN_LIST TEST_LABELS)
            set(TEST_TIMEOUT 300)
        endif()
    endif()
    if(PTV_SANITIZE)
        math(EXPR TEST_TIMEOUT "5 * ${TEST_TIMEOUT}")
    endif()
    add_test(NAME ${name} COMMAND ${TEST_COMMAND})
    set_tests_properties(${name} PROPERTIES
        LABELS "${TEST_LABELS}"
        TIMEOUT ${TEST_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_HASH_SEED=0;QT_LOGGING_RULES=;${TEST_ENVIRONMENT}")
endfunction()
