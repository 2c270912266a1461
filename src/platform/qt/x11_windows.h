// Foreign windows through the X Window System: messages to the window manager, and the XTEST extension
// for keys. Where the toolkit isn't on an X display, everything fails as an unknown member.
#pragma once

#include "platform/foreign_windows.h"

namespace velm {

class X11Windows : public ForeignWindows {
  public:
    X11Windows() = default;
    // Puts the keyboard mapping back.
    ~X11Windows() override;
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    void ActivateProcess(std::int32_t processId) override;
    void ActivateTitle(std::u16string_view title) override;
    void TypeKeys(std::u16string_view keys) override;
    void TypeCharacters(std::u16string_view text) override;
};

}  // namespace velm
