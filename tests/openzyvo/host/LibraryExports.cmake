# Lists the dynamic symbols LIBRARY defines (with NM) and fails unless the
# API and the host interface are among them and the runtime's internals are
# not. Run by CTest: cmake -DNM=... -DLIBRARY=... -P LibraryExports.cmake
execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY}
                OUTPUT_VARIABLE symbols RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "${NM} could not read ${LIBRARY}")
endif()

set(exported
    "ZGlobal::displayError(ZString const&)"  # a class of the API
    "operator<<(std::ostream&, ZString const&)" # a free function of the API
    "operator==(ZPlug const&, ZObject const&)"  # a friend defined in the library
    "ZAnimControl::currentTime()"            # OpenZyvoAnim
    "typeinfo for ZPxNode"                   # what plug-ins derive from
    "ZHost::Session::Session("               # the host interface
    "ZHost::loadPlugin(")
set(hidden
    "oz::Graph::instance()"
    "oz::plugins::PluginRegistry::"
    "oz::cmd::MessageLog::"
    "oz::exporter::writeObj(")

set(wrong "")
foreach(symbol IN LISTS exported)
    string(FIND "${symbols}" "${symbol}" at)
    if(at EQUAL -1)
        string(APPEND wrong "not exported: ${symbol}\n")
    endif()
endforeach()
foreach(symbol IN LISTS hidden)
    string(FIND "${symbols}" "${symbol}" at)
    if(NOT at EQUAL -1)
        string(APPEND wrong "exported, but internal: ${symbol}\n")
    endif()
endforeach()
if(wrong)
    message(FATAL_ERROR "${LIBRARY}:\n${wrong}")
endif()
