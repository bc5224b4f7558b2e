# Configures and builds the example plug-in in SOURCE against the installed
# package in PREFIX, runs its script with the installed host ZYVO and checks
# the values the plug-in's node computed.
file(REMOVE_RECURSE ${WORK})

function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(failed)
        message(FATAL_ERROR "${what} failed:\n${out}")
    endif()
    set(output "${out}" PARENT_SCOPE)
endfunction()

run("configuring the example" ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH=${PREFIX})
run("building the example" ${CMAKE_COMMAND} --build ${WORK})
run("running the example's script" ${ZYVO} --plugin-path ${WORK} run ${SOURCE}/hypotenuse.zys)

# The long sides of a 3-4-5 and of a 0.75-1-1.25 triangle, in that order: the
# second shows that the node computed again once its inputs changed.
if(NOT output MATCHES "(^|\n)5\n(.*\n)?1\\.25\n")
    message(FATAL_ERROR "the example's node did not print 5 and then 1.25:\n${output}")
endif()
message(STATUS "${output}")
