# Embeds every file of src/resources as a byte array that data/resources.cpp looks up by name.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(GLOB VELM_RESOURCE_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/resources/*.txt)
set(VELM_RESOURCES_SOURCE ${CMAKE_BINARY_DIR}/generated/embedded_resources.cpp)
add_custom_command(
    OUTPUT ${VELM_RESOURCES_SOURCE}
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/tools/embed_resources.py
            ${VELM_RESOURCES_SOURCE} ${VELM_RESOURCE_FILES}
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/embed_resources.py ${VELM_RESOURCE_FILES}
    COMMENT "Embedding the text resources"
    VERBATIM)
