# Layers the compiler enforces.
#
# Sources include a header of another folder by its folder name
# ("graph/Node.h"). Instead of one include root that shows every folder to
# every target, each part gets an include directory of its own in the build
# tree that holds links to exactly the folders it may use, so including a
# folder above it fails to compile ("No such file or directory").
#
# zyvo_part_scope(<target> LAYER <layer> PART <folder> ROOT <dir> [USES <folder>...])
#   LAYER  names the stack the part belongs to (e.g. "openzyvo", "type"); a
#          part may only use parts of its own layer declared before it.
#   PART   the part's folder under ROOT; it always sees itself.
#   USES   the parts directly below it; what they use is visible too, so each
#          part names only its direct neighbours.
# The scope belongs to the target, so a folder may hold two targets that see
# different parts (a library and the module built on top of it).
function(zyvo_part_scope target)
    cmake_parse_arguments(ARG "" "LAYER;PART;ROOT" "USES" ${ARGN})
    if(NOT ARG_LAYER OR NOT ARG_PART OR NOT ARG_ROOT)
        message(FATAL_ERROR "zyvo_part_scope(${target}) needs LAYER, PART and ROOT")
    endif()
    set(visible ${ARG_PART})
    foreach(used IN LISTS ARG_USES)
        get_property(known GLOBAL PROPERTY zyvo_scope_${ARG_LAYER}_${used} SET)
        if(NOT known)
            message(FATAL_ERROR "${ARG_LAYER}/${ARG_PART} uses ${used}, which is not declared before it")
        endif()
        get_property(closure GLOBAL PROPERTY zyvo_scope_${ARG_LAYER}_${used})
        list(APPEND visible ${closure})
    endforeach()
    list(REMOVE_DUPLICATES visible)
    set_property(GLOBAL PROPERTY zyvo_scope_${ARG_LAYER}_${ARG_PART} ${visible})

    set(scope ${PROJECT_BINARY_DIR}/include_scopes/${target})
    file(REMOVE_RECURSE ${scope})
    file(MAKE_DIRECTORY ${scope})
    foreach(folder IN LISTS visible)
        file(CREATE_LINK ${ARG_ROOT}/${folder} ${scope}/${folder} SYMBOLIC)
    endforeach()
    target_include_directories(${target} PRIVATE ${scope})
endfunction()

# zyvo_layer_probe(<name> TARGET <target> INCLUDE <header>)
# A CTest check that the scope of <target> really hides <header>: the compiler
# checks a one-line source including it with only that scope, and the test
# passes only when it cannot find the header.
function(zyvo_layer_probe name)
    cmake_parse_arguments(ARG "" "TARGET;INCLUDE" "" ${ARGN})
    if(NOT ZYVO_BUILD_TESTS)
        return()
    endif()
    set(source ${PROJECT_BINARY_DIR}/layer_probes/${name}.cpp)
    file(WRITE ${source} "#include \"${ARG_INCLUDE}\"\n")
    add_test(NAME layers.${name}
             COMMAND ${CMAKE_CXX_COMPILER} -fsyntax-only
                     -I${PROJECT_BINARY_DIR}/include_scopes/${ARG_TARGET} ${source})
    string(REPLACE "." "\\." header_pattern "${ARG_INCLUDE}")
    set_tests_properties(layers.${name} PROPERTIES
        PASS_REGULAR_EXPRESSION "${header_pattern}: No such file or directory;'${header_pattern}' file not found")
endfunction()
