# openzyvo_add_plugin(<name> SOURCES <source>... [LIBS <library>...])
#
# A plug-in the host can load: a loadable module named <name>.so (no "lib"
# prefix, as loadPlugin looks it up by name) linked against OpenZyvo. Used by
# the plug-ins built in this tree and, installed beside OpenZyvoConfig.cmake,
# by plug-ins built against an installed OpenZyvo.
function(openzyvo_add_plugin name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    if(NOT ARG_SOURCES)
        message(FATAL_ERROR "openzyvo_add_plugin(${name}) needs SOURCES")
    endif()
    add_library(${name} MODULE ${ARG_SOURCES})
    # Only what the entry-point macros mark leaves the library, so that its
    # classes never bind to another copy of the same classes in the process.
    set_target_properties(${name} PROPERTIES
        PREFIX ""
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${name} PRIVATE OpenZyvo::OpenZyvo ${ARG_LIBS})
    # Static libraries folded in keep their symbols to themselves too.
    target_link_options(${name} PRIVATE -Wl,--exclude-libs,ALL)

    # A missing symbol should fail the link, not the host's loadPlugin. Clang
    # leaves the sanitizer runtime (and libFuzzer's hooks) to the program that
    # loads the module, so a sanitized clang build cannot resolve everything here.
    get_property(compile_options DIRECTORY PROPERTY COMPILE_OPTIONS)
    get_property(link_options DIRECTORY PROPERTY LINK_OPTIONS)
    string(FIND "${CMAKE_CXX_FLAGS} ${CMAKE_MODULE_LINKER_FLAGS} ${compile_options} ${link_options}"
        "-fsanitize=" sanitized)
    if(NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND sanitized GREATER -1))
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
endfunction()
