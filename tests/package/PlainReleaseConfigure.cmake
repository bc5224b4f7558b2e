# Configures SOURCE in WORK the way someone building a release does, with no
# options, and fails if any compile command would turn warnings into errors:
# a newer compiler that warns about more must still build it.
file(REMOVE_RECURSE ${WORK})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
            -DCMAKE_BUILD_TYPE=Release -DZYVO_BUILD_TESTS=OFF -DZYVO_BUILD_BENCH=OFF
    RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
if(failed)
    message(FATAL_ERROR "configuring a plain release build failed:\n${out}")
endif()
file(READ ${WORK}/compile_commands.json commands)
string(REGEX MATCH "[^\n]*-Werror[^\n]*" command "${commands}")
if(command)
    message(FATAL_ERROR "a plain release build treats warnings as errors:\n${command}")
endif()
