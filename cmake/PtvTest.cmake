# Over a hundred programs are linked with all of the panel.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=lld PTV_HAS_LLD)
set(PTV_FAST_LINKER $<$<BOOL:${PTV_HAS_LLD}>:-fuse-ld=lld>)

# All test programs, and those that the thread sanitizer build needs.
add_custom_target(ptv_tests)
add_custom_target(ptv_tests_thread)

# ptv_test(<topic> [SOURCES <file>...] [LIBS <target>...] [TIMEOUT <seconds>] [ENVIRONMENT <VAR=value>...]
#          [STRESS] [THREAD] [MEMCHECK] [NO_DOUBLE] [PLAIN])
#
# The Qt Test program tst_<folder>_<topic> of tests/<folder>/tst_<topic>.cpp, offscreen. Its main function comes
# from PTV_TEST_MAIN of TestMain.h. It links the panel's objects, the node records, CommonComponent, TestSupport
# and the double of the control library.
#   STRESS     takes longer than a quick test may
#   THREAD     runs threads of its own: also built for and run under the thread sanitizer
#   MEMCHECK   widgets end inside their own handlers, or other uses of memory that Qt's own code makes, which is
#              not instrumented: registered a second time as memcheck_<program>, under valgrind
#   NO_DOUBLE  without the double: for tests that link the real CorvidControl (LIBS CorvidControl)
#   PLAIN      without the double and without the panel's objects: for tests of the stand-ins
#
# The labels, one of which each test has: quick (within a second or so), stress (longer), e2e (needs an X server or
# the whole application; not in a build that has a sanitizer), memcheck. A second one: thread.
function(ptv_test topic)
    cmake_parse_arguments(TEST "STRESS;THREAD;MEMCHECK;NO_DOUBLE;PLAIN" "TIMEOUT" "SOURCES;LIBS;ENVIRONMENT" ${ARGN})
    if(TEST_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "ptv_test(${topic}): unknown arguments ${TEST_UNPARSED_ARGUMENTS}")
    endif()
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    set(name tst_${folder}_${topic})
    add_executable(${name} tst_${topic}.cpp ${TEST_SOURCES})
    ptv_test_target(${name})
    target_link_libraries(${name} PRIVATE TestSupport NodeRecords Qt5::Test ${TEST_LIBS})
    if(NOT TEST_PLAIN)
        target_link_libraries(${name} PRIVATE ProcessorTreeViewObjects CommonComponent)
        if(NOT TEST_NO_DOUBLE)
            target_link_libraries(${name} PRIVATE ControlDouble)
        endif()
    endif()
    ptv_use_prefix(${name} test)
    ptv_moc_source(${name} tst_${topic}.cpp)
    set(kind quick)
    if(TEST_STRESS)
        set(kind stress)
    endif()
    set(thread "")
    if(TEST_THREAD)
        set(thread THREAD)
        add_dependencies(ptv_tests_thread ${name})
    endif()
    if(TEST_MEMCHECK)
        ptv_add_memcheck(${name} ENVIRONMENT ${TEST_ENVIRONMENT})
    endif()
    ptv_add_test(${name} COMMAND ${name} KIND ${kind} ${thread} TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT ${TEST_ENVIRONMENT})
endfunction()

# moc's file for the source of a program. CMake's own way builds two targets more for each program, which takes a
# fifth of the time of a clean build. What else has a Q_OBJECT goes into a library of the folder.
function(ptv_moc_source name file)
    cmake_path(GET file STEM stem)
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/${stem}.moc)
    qt5_generate_moc(${CMAKE_CURRENT_SOURCE_DIR}/${file} ${moc} TARGET ${name})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/support) # what the programs of a folder share
        target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/support)
    endif()
    set_property(SOURCE ${file} APPEND PROPERTY OBJECT_DEPENDS ${moc})
endfunction()

# The program once more, as memcheck_<name>; not in a build that has a sanitizer in the program. Valgrind cannot
# follow what the regular expressions compile for themselves at run time. Leaks are the address sanitizer's.
function(ptv_add_memcheck name)
    cmake_parse_arguments(TEST "" "" "ENVIRONMENT" ${ARGN})
    find_program(PTV_VALGRIND valgrind)
    if(PTV_SANITIZE OR NOT PTV_VALGRIND)
        return()
    endif()
    set(suppressions ${PROJECT_SOURCE_DIR}/tests/support/suppressions/memcheck.supp)
    ptv_add_test(memcheck_${name}
        COMMAND ${PTV_VALGRIND} --tool=memcheck --quiet --leak-check=no --num-callers=40 --error-exitcode=99
            --suppressions=${suppressions} $<TARGET_FILE:${name}>
        KIND memcheck
        ENVIRONMENT QT_ENABLE_REGEXP_JIT=0 ${TEST_ENVIRONMENT})
endfunction()

# What every program of the tests has in common, also those that a test starts.
function(ptv_test_target name)
    ptv_target(${name})
    target_link_options(${name} PRIVATE ${PTV_FAST_LINKER})
    if(TARGET TsanQt)
        target_link_libraries(${name} PRIVATE TsanQt)
    endif()
    add_dependencies(ptv_tests ${name})
endfunction()

# ptv_add_test(<name> COMMAND <command>... [KIND quick|stress|e2e|memcheck] [THREAD] [TIMEOUT <seconds>]
#              [ENVIRONMENT ...])
# The surroundings that each test gets, for tests that are no Qt Test program. QT_HASH_SEED makes the
# order in hashes the same in each run; PTV_SANITIZE names the sanitizer that the test runs under.
function(ptv_add_test name)
    cmake_parse_arguments(TEST "THREAD" "KIND;TIMEOUT" "COMMAND;ENVIRONMENT" ${ARGN})
    if(NOT TEST_KIND)
        set(TEST_KIND quick)
    endif()
    if(NOT TEST_KIND MATCHES "^(quick|stress|e2e|memcheck)$")
        message(FATAL_ERROR "${name}: no such kind of test: ${TEST_KIND}")
    endif()
    set(labels ${TEST_KIND})
    if(TEST_THREAD)
        list(APPEND labels thread)
    endif()
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 60)
        if(NOT TEST_KIND STREQUAL quick)
            set(TEST_TIMEOUT 300)
        endif()
    endif()
    if(PTV_SANITIZE)
        math(EXPR TEST_TIMEOUT "4 * ${TEST_TIMEOUT}")
    endif()
    set(suppressions ${PROJECT_SOURCE_DIR}/tests/support/suppressions)
    add_test(NAME ${name} COMMAND ${TEST_COMMAND})
    set_tests_properties(${name} PROPERTIES
        LABELS "${labels}"
        TIMEOUT ${TEST_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_HASH_SEED=0;QT_LOGGING_RULES=;\
XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}.config;\
PTV_SANITIZE=${PTV_SANITIZE};\
ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1;\
LSAN_OPTIONS=suppressions=${suppressions}/leak.supp:print_suppressions=0;\
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1;\
TSAN_OPTIONS=ignore_noninstrumented_modules=1:exitcode=66:atexit_sleep_ms=100:suppressions=${suppressions}/thread.supp:print_suppressions=0;\
${TEST_ENVIRONMENT}")
endfunction()
