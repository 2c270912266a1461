# A console face without the hidden caches, and the test that runs random programs on both.
#
# Only the sources that VELM_NO_CACHES reaches, by themselves or through a header, are compiled once more:
# on the linker's command line they stand before the library, which then isn't asked for theirs.
set(VELM_ASKING "^#(if|ifdef|ifndef|elif).*VELM_NO_CACHES")
set(VELM_ASKING_HEADERS "")

# Whether a file asks for VELM_NO_CACHES, or includes a header that is known to.
function(velm_asks FILE RESULT)
    file(STRINGS ${FILE} ASKS REGEX "${VELM_ASKING}")
    file(STRINGS ${FILE} INCLUDES REGEX "^#include \"")
    foreach(NAME ${VELM_ASKING_HEADERS})
        if(INCLUDES MATCHES "\"${NAME}\"")
            set(ASKS TRUE)
        endif()
    endforeach()
    set(${RESULT} "${ASKS}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE VELM_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
set(VELM_FOUND_MORE TRUE)
while(VELM_FOUND_MORE)
    set(VELM_FOUND_MORE FALSE)
    foreach(HEADER ${VELM_HEADERS})
        file(RELATIVE_PATH NAME ${CMAKE_SOURCE_DIR}/src ${HEADER})
        velm_asks(${HEADER} ASKS)
        if(ASKS AND NOT NAME IN_LIST VELM_ASKING_HEADERS)
            list(APPEND VELM_ASKING_HEADERS ${NAME})
            set(VELM_FOUND_MORE TRUE)
        endif()
    endforeach()
endwhile()
set(VELM_PLAIN_SOURCES ${VELM_CONSOLE_SOURCES})
foreach(SOURCE ${VELM_ENGINE_SOURCES})
    velm_asks(${SOURCE} ASKS)
    if(ASKS)
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
