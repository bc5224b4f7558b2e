# `cmake --install <build> --prefix <dir>` lays out the same tree the build
# makes (Layout.cmake): the host program, the runtime, the Type plug-in with its
# scripts, and the API headers with a CMake package for building plug-ins.
include(CMakePackageConfigHelpers)

install(TARGETS OpenZyvo LIBRARY DESTINATION ${ZYVO_LIB_FOLDER})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/openzyvo/include/ DESTINATION ${ZYVO_INCLUDE_FOLDER})
if(TARGET zyvo)
    install(TARGETS zyvo RUNTIME DESTINATION ${ZYVO_BIN_FOLDER})
endif()
if(TARGET Type)
    install(TARGETS Type LIBRARY DESTINATION ${ZYVO_PLUGIN_FOLDER})
    # The scripts folder as the build leaves it, so that plug-ins find their
    # scripts under the same names installed as built.
    install(DIRECTORY ${ZYVO_SCRIPTS_OUTPUT_DIRECTORY}/ DESTINATION ${ZYVO_SCRIPTS_FOLDER}
        PATTERN __pycache__ EXCLUDE)
endif()

# The package's version is the API's: a plug-in asking for 2.0 builds against
# any 2.x runtime, as the host loads plug-ins of its own major version.
file(STRINGS ${PROJECT_SOURCE_DIR}/openzyvo/include/OpenZyvo/ZApiVersion.h api_version_line
    REGEX "^#define OPENZYVO_API_VERSION [0-9]+$")
string(REGEX REPLACE ".* " "" api_version "${api_version_line}")
math(EXPR api_major "${api_version} / 10000")
math(EXPR api_minor "${api_version} / 100 % 100")
math(EXPR api_patch "${api_version} % 100")

set(package_folder ${ZYVO_LIB_FOLDER}/cmake/OpenZyvo)
set(package_build ${PROJECT_BINARY_DIR}/package)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OpenZyvoConfig.cmake.in
    ${package_build}/OpenZyvoConfig.cmake.in
    INSTALL_DESTINATION ${package_folder}
    PATH_VARS ZYVO_LIB_FOLDER ZYVO_INCLUDE_FOLDER)
# The runtime's file name is known only when the build is generated.
file(GENERATE OUTPUT ${package_build}/OpenZyvoConfig.cmake INPUT ${package_build}/OpenZyvoConfig.cmake.in)
write_basic_package_version_file(${package_build}/OpenZyvoConfigVersion.cmake
    VERSION ${api_major}.${api_minor}.${api_patch}
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${package_build}/OpenZyvoConfig.cmake
    ${package_build}/OpenZyvoConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/OpenZyvoPlugin.cmake
    DESTINATION ${package_folder})
