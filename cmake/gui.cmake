# The window face: everything that needs Qt. Without Qt the console face is still built.
find_package(Qt6 QUIET COMPONENTS Widgets PrintSupport)
if(NOT Qt6_FOUND)
    message(WARNING "Qt 6 Widgets was not found (Debian: qt6-base-dev): only velmconsole is built.")
    return()
endif()
pkg_check_modules(X11 REQUIRED IMPORTED_TARGET x11 xtst)
file(GLOB_RECURSE VELM_QT_SOURCES CONFIGURE_DEPENDS src/platform/qt/*.cpp)
file(GLOB VELM_GUI_SOURCES CONFIGURE_DEPENDS src/faces/window/*.cpp)
if(NOT VELM_GUI_SOURCES)
    return()
endif()
# Compiled once, used twice: linked into the window face, and as a library that the console face loads
# when a script first touches an object.
add_library(velm_qt_objects OBJECT ${VELM_QT_SOURCES})
set_target_properties(velm_qt_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)
target_link_libraries(velm_qt_objects PUBLIC velm_flags Qt6::Widgets Qt6::PrintSupport
    PRIVATE PkgConfig::X11)

add_library(velm_qt STATIC $<TARGET_OBJECTS:velm_qt_objects>)
target_link_libraries(velm_qt PUBLIC velm_engine Qt6::Widgets Qt6::PrintSupport PRIVATE PkgConfig::X11)
add_executable(velmscript ${VELM_GUI_SOURCES})
target_link_libraries(velmscript PRIVATE velm_qt)

# The library takes the engine from the program that loads it, so that there is one engine in a process.
add_library(velmtoolkit MODULE $<TARGET_OBJECTS:velm_qt_objects>)
target_link_libraries(velmtoolkit PRIVATE Qt6::Widgets Qt6::PrintSupport PkgConfig::X11)
set_target_properties(velmtoolkit PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
velm_export_engine(velmconsole)
add_dependencies(velmconsole velmtoolkit)
