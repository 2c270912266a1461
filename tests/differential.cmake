# A console face without the hidden caches, and the test that runs random programs on both.
#
# Only the sources that ask for VELM_NO_CACHES, or include a header that does, are compiled once more: on
# the linker's command line they stand before the library, which then isn't asked for theirs.
set(VELM_ASKING "^#(if|ifdef|ifndef|elif).*VELM_NO_CACHES")
file(GLOB_RECURSE VELM_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
set(VELM_ASKING_HEADERS "")
foreach(HEADER ${VELM_HEADERS})
    file(STRINGS ${HEADER} FOUND REGEX "${VELM_ASKING}")
    if(FOUND)
        file(RELATIVE_PATH NAME ${CMAKE_SOURCE_DIR}/src ${HEADER})
        list(APPEND VELM_ASKING_HEADERS "${NAME}")
    endif()
endforeach()

# Whether a file includes one of those headers.
function(velm_includes_asking_header FILE RESULT)
    file(STRINGS ${FILE} INCLUDES REGEX "^#include \"")
    set(${RESULT} FALSE PARENT_SCOPE)
    foreach(NAME ${VELM_ASKING_HEADERS})
        if(INCLUDES MATCHES "\"${NAME}\"")
            set(${RESULT} TRUE PARENT_SCOPE)
        endif()
    endforeach()
endfunction()

foreach(HEADER ${VELM_HEADERS})
    velm_includes_asking_header(${HEADER} FOUND)
    if(FOUND)
        message(FATAL_ERROR "${HEADER}: only a source may include a header that asks for VELM_NO_CACHES")
    endif()
endforeach()
set(VELM_PLAIN_SOURCES ${VELM_CONSOLE_SOURCES})
foreach(SOURCE ${VELM_ENGINE_SOURCES})
    file(STRINGS ${SOURCE} ASKS REGEX "${VELM_ASKING}")
    velm_includes_asking_header(${SOURCE} INCLUDES)
    if(ASKS OR INCLUDES)
        list(APPEND VELM_PLAIN_SOURCES ${SOURCE})
    endif()
endforeach()

add_executable(velmconsole_no_caches ${VELM_PLAIN_SOURCES})
target_compile_definitions(velmconsole_no_caches PRIVATE VELM_NO_CACHES=1)
target_link_libraries(velmconsole_no_caches PRIVATE velm_engine)

velm_script_test(differential tests/differential.py $<TARGET_FILE:velmconsole>
    $<TARGET_FILE:velmconsole_no_caches>)
velm_script_test(self_test/differential tests/differential.py --self-test
    $<TARGET_FILE:velmconsole>)
