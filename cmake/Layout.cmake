# One layout for the build tree and an installed tree. The host program in bin/
# finds plug-ins and their scripts in ../plug-ins and ../scripts, relative to
# its own executable, so either tree runs without any environment; programs and
# plug-ins find the runtime in lib/.
set(ZYVO_BIN_FOLDER bin)
set(ZYVO_LIB_FOLDER lib)
set(ZYVO_PLUGIN_FOLDER plug-ins)
set(ZYVO_SCRIPTS_FOLDER scripts)
set(ZYVO_INCLUDE_FOLDER include)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${ZYVO_BIN_FOLDER})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${ZYVO_LIB_FOLDER})
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${ZYVO_LIB_FOLDER})
set(ZYVO_PLUGIN_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${ZYVO_PLUGIN_FOLDER})
set(ZYVO_SCRIPTS_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${ZYVO_SCRIPTS_FOLDER})

set(CMAKE_BUILD_RPATH ${CMAKE_BINARY_DIR}/${ZYVO_LIB_FOLDER})
# Every installed folder is one level below the prefix, so one relative path
# serves the program, the plug-ins and the runtime, wherever the tree is put.
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${ZYVO_LIB_FOLDER}")
