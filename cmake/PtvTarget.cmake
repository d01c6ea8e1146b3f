# What every target of this project has in common.
function(ptv_target target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        BUILD_RPATH_USE_ORIGIN ON
        INSTALL_RPATH "$ORIGIN;$ORIGIN/../lib")
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_TO_ASCII
        QT_DEPRECATED_WARNINGS
        QT_NO_URL_CAST_FROM_STRING)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
        -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Wsuggest-override
        $<$<BOOL:${PTV_WARNINGS_AS_ERRORS}>:-Werror>)
    if(PTV_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${PTV_SANITIZE} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${PTV_SANITIZE})
    endif()
endfunction()

# A shared library: its file has the version, its name for the loader the first number of it.
function(ptv_shared_library target)
    ptv_target(${target})
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()
