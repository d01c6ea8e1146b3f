# Where an installation has the headers and the data, and where a program finds the libraries, seen from its folder.
set(PTV_INCLUDE_ROOT ${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME})
set(PTV_DATA_ROOT ${CMAKE_INSTALL_DATADIR}/${PROJECT_NAME})
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR} OUTPUT_VARIABLE PTV_LIBRARY_FOLDER)

# What is shipped is hard to turn against its user.
set(PTV_HARDENING -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fcf-protection PTV_HAS_CF_PROTECTION)
if(PTV_HAS_CF_PROTECTION)
    list(APPEND PTV_HARDENING -fcf-protection)
endif()

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
        INSTALL_RPATH $ORIGIN/${PTV_LIBRARY_FOLDER})
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_TO_ASCII
        QT_DEPRECATED_WARNINGS
        QT_NO_URL_CAST_FROM_STRING)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
        -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Wsuggest-override
        $<$<BOOL:${PTV_WARNINGS_AS_ERRORS}>:-Werror>
        "$<$<CONFIG:Release>:${PTV_HARDENING}>")
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
    if(PTV_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${PTV_SANITIZE} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${PTV_SANITIZE})
    endif()
endfunction()

# A shared library that is installed: its file has the version, its name for the loader the first number of it.
function(ptv_shared_library target)
    ptv_target(${target})
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH $ORIGIN)
endfunction()
