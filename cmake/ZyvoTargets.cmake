include(GoogleTest)

# zyvo_add_test(NAME SOURCES a_test.cpp ... LIBS ...)
# One GoogleTest executable; every test case becomes a CTest test.
function(zyvo_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gmock GTest::gtest_main zyvo_warnings)
    target_compile_definitions(${name} PRIVATE ZYVO_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# zyvo_add_bench(NAME SOURCES a_bench.cpp ... LIBS ...)
function(zyvo_add_bench name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark benchmark::benchmark_main zyvo_warnings)
endfunction()

# zyvo_add_fuzz_target(NAME SOURCES a_fuzz.cpp ... LIBS ... DEPENDS ...)
# A target that feeds outside input to one reader. Every build gets NAME_replay,
# which CTest runs over the inputs kept in tests/corpus/NAME (seeds and inputs
# that once broke us); a ZYVO_FUZZ build (clang) also gets the libFuzzer
# program NAME_fuzz that scripts/fuzz runs.
function(zyvo_add_fuzz_target name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;DEPENDS" ${ARGN})
    if(ZYVO_FUZZ)
        add_executable(${name}_fuzz ${ARG_SOURCES})
        target_link_libraries(${name}_fuzz PRIVATE ${ARG_LIBS} zyvo_warnings)
        target_link_options(${name}_fuzz PRIVATE -fsanitize=fuzzer)
        if(ARG_DEPENDS)
            add_dependencies(${name}_fuzz ${ARG_DEPENDS})
        endif()
    endif()
    if(ZYVO_BUILD_TESTS)
        add_executable(${name}_replay ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/fuzz/ReplayMain.cpp)
        target_link_libraries(${name}_replay PRIVATE ${ARG_LIBS} zyvo_warnings)
        if(ARG_DEPENDS)
            add_dependencies(${name}_replay ${ARG_DEPENDS})
        endif()
        add_test(NAME fuzz_replay.${name}
                 COMMAND ${name}_replay ${PROJECT_SOURCE_DIR}/tests/corpus/${name})
        set_tests_properties(fuzz_replay.${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
endfunction()
