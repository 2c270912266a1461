# Libraries that the engine's platform layer needs; each is optional at configure time only when
# its service can say at run time that it is missing.
add_library(velm_libraries INTERFACE)
find_package(Threads REQUIRED)
pkg_check_modules(PCRE2 REQUIRED IMPORTED_TARGET libpcre2-16)
pkg_check_modules(FFI REQUIRED IMPORTED_TARGET libffi)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
target_link_libraries(velm_libraries INTERFACE PkgConfig::PCRE2 PkgConfig::FFI PkgConfig::SQLITE
    ${CMAKE_DL_LIBS})
