# Installs BUILD into a fresh folder under WORK, then moves the whole tree to
# PREFIX, so that what later runs from PREFIX cannot lean on the prefix it was
# installed to.
file(REMOVE_RECURSE ${WORK})
set(staged ${WORK}/staged)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${staged} RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "installing ${BUILD} failed")
endif()
file(RENAME ${staged} ${PREFIX})
