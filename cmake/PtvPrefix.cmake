# Most of the time of a compilation goes into Qt's headers. With PTV_PREFIX they are compiled once for all targets
# of a kind.
set(PTV_PREFIX_DIR ${CMAKE_CURRENT_LIST_DIR}/prefix)

# ptv_make_prefix(<kind> LIBS <target>... HEADERS <header>... [OPTIONS <option>...]): the prefix of that kind, by a
# program that does nothing else. A target can use it that has at least the definitions of LIBS; it gets OPTIONS too.
function(ptv_make_prefix kind)
    if(NOT PTV_PREFIX)
        return()
    endif()
    cmake_parse_arguments(PREFIX "" "" "LIBS;HEADERS;OPTIONS" ${ARGN})
    add_executable(${kind}_prefix ${PTV_PREFIX_DIR}/main.cpp)
    ptv_target(${kind}_prefix)
    set_target_properties(${kind}_prefix PROPERTIES AUTOMOC OFF)
    target_link_libraries(${kind}_prefix PRIVATE ${PREFIX_LIBS})
    target_compile_options(${kind}_prefix PRIVATE -fpch-preprocess ${PREFIX_OPTIONS}) # the first for the compiler cache
    set_target_properties(${kind}_prefix PROPERTIES PTV_OPTIONS "${PREFIX_OPTIONS}")
    target_precompile_headers(${kind}_prefix PRIVATE ${PREFIX_HEADERS})
endfunction()

# ptv_use_prefix(<target> <kind>)
function(ptv_use_prefix target kind)
    if(TARGET ${kind}_prefix)
        get_target_property(options ${kind}_prefix PTV_OPTIONS)
        target_compile_options(${target} PRIVATE -fpch-preprocess ${options})
        target_precompile_headers(${target} REUSE_FROM ${kind}_prefix)
    endif()
endfunction()

ptv_make_prefix(core LIBS Qt5::Core HEADERS <QDateTime> <QDebug> <QFile> <QJsonObject> <QMap> <QObject> <QSet> <functional> <memory> <mutex> <thread>)
ptv_make_prefix(widgets LIBS Qt5::Widgets HEADERS <QAction> <QApplication> <QEvent> <QPainter> <QTimer> <QTreeView>)
