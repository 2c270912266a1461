# The table of code page 932: written as a C++ source into the build folder at build time.
# Sets VELM_CODE_PAGE_932_SOURCE, to be added to the sources of the library that holds src/data.

find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(VELM_CODE_PAGE_932_SOURCE "${CMAKE_BINARY_DIR}/generated/code_page_932_table.cpp")
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/generated")

add_custom_command(
    OUTPUT "${VELM_CODE_PAGE_932_SOURCE}"
    COMMAND Python3::Interpreter
            "${CMAKE_SOURCE_DIR}/tools/code_page_932/generate_table.py"
            "${CMAKE_SOURCE_DIR}/tools/code_page_932/code_page_932.txt"
            "${VELM_CODE_PAGE_932_SOURCE}"
    DEPENDS "${CMAKE_SOURCE_DIR}/tools/code_page_932/generate_table.py"
            "${CMAKE_SOURCE_DIR}/tools/code_page_932/code_page_932.txt"
    COMMENT "Writing the table of code page 932"
    VERBATIM)

# Adds the test that compares every code with a second, independent table (Python's own codec).
# `library` is the target that holds src/data.
function(velm_add_code_page_932_check library)
    add_executable(code_page_932_dump
                   "${CMAKE_SOURCE_DIR}/tests/tools/code_page_932_dump.cpp")
    target_link_libraries(code_page_932_dump PRIVATE ${library})
    add_test(NAME code_page_932_check
             COMMAND Python3::Interpreter
                     "${CMAKE_SOURCE_DIR}/tests/code_page_932_check.py"
                     $<TARGET_FILE:code_page_932_dump>)
endfunction()
