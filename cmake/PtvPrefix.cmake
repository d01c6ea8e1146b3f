# Most of the time of a compilation goes into Qt's headers. With PTV_PREFIX they are compiled once for all targets
# of a kind.
set(PTV_PREFIX_DIR ${CMAKE_CURRENT_LIST_DIR}/prefix)

# ptv_make_prefix(<kind> LIBS <target>... HEADERS <header>...): the prefix of that kind, by a program that does
# nothing else. A target can use it that has at least the definitions of LIBS.
function(ptv_make_prefix kind)
    if(NOT PTV_PREFIX)
        return()
    endif()
    cmake_parse_arguments(PREFIX "" "" "LIBS;HEADERS" ${ARGN})
    add_executable(${kind}_prefix ${PTV_PREFIX_DIR}/main.cpp)
    ptv_target(${kind}_prefix)
    set_target_properties(${kind}_prefix PROPERTIES AUTOMOC OFF)
    target_link_libraries(${kind}_prefix PRIVATE ${PREFIX_LIBS})
    target_compile_options(${kind}_prefix PRIVATE -fpch-preprocess) # for the compiler cache
    target_precompile_headers(${kind}_prefix PRIVATE ${PREFIX_HEADERS})
endfunction()

# ptv_use_prefix(<target> <kind>)
function(ptv_use_prefix target kind)
    if(TARGET ${kind}_prefix)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
        target_precompile_headers(${target} REUSE_FROM ${kind}_prefix)
    endif()
endfunction()

ptv_make_prefix(core LIBS Qt5::Core HEADERS <QDateTime> <QDebug> <QFile> <QJsonObject> <QMap> <QObject> <QSet> <functional> <memory> <mutex> <thread>)
ptv_make_prefix(widgets LIBS Qt5::Widgets HEADERS <QAction> <QApplication> <QEvent> <QPainter> <QTimer> <QTreeView>)
