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
