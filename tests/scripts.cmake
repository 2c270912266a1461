# Tests that are scripts: one for each case file, the examples, and the checks of the tree itself.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(velm_script_test NAME)
    add_test(NAME ${NAME} COMMAND ${Python3_EXECUTABLE} ${ARGN}
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
endfunction()

# A case file under tests/cases is one test; what its cases ran is noted for the coverage check.
file(GLOB_RECURSE VELM_CASE_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/cases/*.cases)
set(VELM_COVERAGE_REPORTS "")
set(VELM_CASE_TESTS "")
foreach(CASE_FILE ${VELM_CASE_FILES})
    file(RELATIVE_PATH CASE_NAME ${CMAKE_SOURCE_DIR}/tests/cases ${CASE_FILE})
    string(REGEX REPLACE "\\.cases$" "" CASE_NAME ${CASE_NAME})
    set(REPORT ${CMAKE_BINARY_DIR}/coverage/${CASE_NAME}.rows)
    velm_script_test(cases/${CASE_NAME} tests/run_cases.py -j 2 --coverage ${REPORT}
        $<TARGET_FILE:velmconsole> ${CASE_FILE})
    list(APPEND VELM_COVERAGE_REPORTS ${REPORT})
    list(APPEND VELM_CASE_TESTS cases/${CASE_NAME})
endforeach()
if(VELM_CASE_TESTS)
    velm_script_test(coverage tests/check_coverage.py $<TARGET_FILE:velmconsole>
        ${VELM_COVERAGE_REPORTS})
    # Only the order: a failing case must not hide which rows never ran.
    set_tests_properties(coverage PROPERTIES DEPENDS "${VELM_CASE_TESTS}")
endif()

velm_script_test(examples tests/run_examples.py $<TARGET_FILE:velmconsole>)
velm_script_test(file_limits tests/file_limits.py $<TARGET_FILE:velmconsole>)
# Where the machine can't make a file system say no, the test says so and doesn't count.
set_tests_properties(file_limits PROPERTIES SKIP_RETURN_CODE 77)
velm_script_test(settings tests/check_settings.py --kills 2 $<TARGET_FILE:velmconsole>)
velm_script_test(robustness tests/robustness.py $<TARGET_FILE:velmconsole>)
velm_script_test(saves tests/check_saves.py --kills 8 $<TARGET_FILE:velmconsole>)
velm_script_test(layers tests/check_layers.py)
velm_script_test(style tests/check_style.py)
velm_script_test(documents tests/check_documents.py --runtime $<TARGET_FILE:velmconsole>)
velm_script_test(programs_of_the_bench bench/run --quick --runs 1 --runtime
    $<TARGET_FILE:velmconsole>)

# The recorded counts are those of one compiler's release build; elsewhere the test doesn't count.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT VELM_SANITIZE AND NOT VELM_NO_CACHES)
    velm_script_test(instruction_counts tests/instruction_counts.py $<TARGET_FILE:velmconsole>
        --compiler
        "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} ${CMAKE_SYSTEM_PROCESSOR}")
    set_tests_properties(instruction_counts PROPERTIES SKIP_RETURN_CODE 77)
endif()

foreach(TOOL run_cases check_coverage check_layers check_style check_documents instruction_counts)
    velm_script_test(self_test/${TOOL} tests/${TOOL}.py --self-test)
endforeach()
