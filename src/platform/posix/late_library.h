// A library of the system that is loaded at its first use and then stays: a start that has no use for it
// must not pay for it. For libraries of which the runtime itself calls a few functions; those that
// scripts name are in dynamic_library.h.
#pragma once

#include <string_view>

namespace velm {

// Kept as the first member of a struct of function pointers, which then name what they are:
//
//     struct Sqlite {
//         LateLibrary file{"libsqlite3.so.0", u"SQLite"};
//         decltype(&sqlite3_step) step = file["sqlite3_step"];
//     };
class LateLibrary {
  public:
    // An address in the library, as whatever pointer is wanted.
    struct Symbol {
        void* address;

        template <class T>
        operator T*() const {
            return reinterpret_cast<T*>(address);
        }
    };

    // file: as the system's loader looks for it. shownName: for the user. Throws Failure(53) when there is
    // no such library.
    LateLibrary(const char* file, std::u16string_view shownName);
    // A function or datum. Throws Failure(53) when the library hasn't got it.
    Symbol operator[](const char* name) const;

  private:
    void* handle_;
    std::u16string_view shownName_;
};

}  // namespace velm
