# Libraries that the engine's platform layer needs. Those of packages are loaded at their first use
# (src/platform/posix/late_library.h): at build time their headers do, and nothing is linked.
add_library(velm_libraries INTERFACE)
find_package(Threads REQUIRED)
pkg_check_modules(PCRE2 REQUIRED libpcre2-16)
pkg_check_modules(FFI REQUIRED libffi)
pkg_check_modules(SQLITE REQUIRED sqlite3)
target_include_directories(velm_libraries SYSTEM INTERFACE ${PCRE2_INCLUDE_DIRS} ${FFI_INCLUDE_DIRS}
    ${SQLITE_INCLUDE_DIRS})
target_link_libraries(velm_libraries INTERFACE ${CMAKE_DL_LIBS})
