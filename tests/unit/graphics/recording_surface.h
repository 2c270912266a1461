// A drawing surface and a turtle that only note what they are asked to do.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/execute.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/settings_state.h"
#include "core/velm.h"
#include "data/numbers.h"
#include "data/utf.h"
#include "graphics/drawing_surface.h"

namespace velm {

using Notes = std::vector<std::string>;

inline std::string NumberText(float number) { return Utf16ToUtf8(FormatSingle(number)); }

inline std::string Joined(std::initializer_list<float> numbers) {
    std::string text;
    for (const float number : numbers) text += ' ' + NumberText(number);
    return text;
}

class RecordingSurface : public DrawingSurface {
  public:
    RecordingSurface(std::u16string name, bool isWindow, Notes& notes)
        : name_(std::move(name)), isWindow_(isWindow), notes_(notes) {}

    std::int32_t pixel = 0;  // what Point answers

    std::u16string ObjectName() const override { return name_; }
    bool IsWindow() const override { return isWindow_; }
    float ScaleWidth() const override { return 200; }
    float ScaleHeight() const override { return 100; }
    void Line(float x, float y, std::int32_t color) override {
        notes_.push_back("line" + Joined({CurrentX, CurrentY, x, y}) + Color(color));
        Stand(x, y);
    }
    void Box(float x, float y, std::int32_t color, bool isFilled) override {
        notes_.push_back((isFilled ? "filled" : "box") + Joined({CurrentX, CurrentY, x, y}) +
                         Color(color));
        Stand(x, y);
    }
    void PSet(float x, float y, std::int32_t color) override {
        notes_.push_back("dot" + Joined({x, y}) + Color(color));
        Stand(x, y);
    }
    void Print(std::u16string_view text) override {
        notes_.push_back("print" + Joined({CurrentX, CurrentY}) + Color(ForeColor) + ' ' +
                         Utf16ToUtf8(text));
        Stand(0, CurrentY + 10);
    }
    float TextWidth(std::u16string_view text) const override {
        return 6 * static_cast<float>(text.size());
    }
    void Cls() override { notes_.push_back("cls"); }
    void RemovePicture() override { notes_.push_back("no picture"); }
    void Refresh() override { notes_.push_back("refresh"); }
    void PaintPicture(const Pixmap& picture, float x, float y, float width, float height) override {
        notes_.push_back("paint" +
                         Joined({static_cast<float>(picture.width), x, y, width, height}));
    }
    std::int32_t Point(float x, float y) const override {
        notes_.push_back("point" + Joined({x, y}));
        return pixel;
    }
    void Ellipse(float left, float top, float right, float bottom) override {
        notes_.push_back("ellipse" + Joined({left, top, right, bottom}) + Color(ForeColor) +
                         Fill());
    }
    void ExtFloodFill(float x, float y, std::int32_t color, std::int32_t mode) override {
        notes_.push_back("flood" + Joined({x, y}) + Color(color) +
                         Joined({static_cast<float>(mode)}) + Fill());
    }

  private:
    std::u16string name_;
    bool isWindow_;
    Notes& notes_;

    static std::string Color(std::int32_t color) {
        return ' ' + NumberText(static_cast<float>(color));
    }
    std::string Fill() const {
        return FillStyle == FillStyles::kSolid ? " fill" + Color(FillColor) : std::string();
    }
    void Stand(float x, float y) {
        CurrentX = x;
        CurrentY = y;
    }
};

class RecordingTurtle : public TurtleSprite {
  public:
    explicit RecordingTurtle(Notes& notes) : notes_(notes) {}

    float Width() const override { return 32; }
    float Height() const override { return 20; }
    void Move(float left, float top) override { notes_.push_back("turtle" + Joined({left, top})); }
    bool Visible() const override { return isVisible_; }
    void SetVisible(bool isVisible) override {
        isVisible_ = isVisible;
        notes_.push_back(isVisible ? "show" : "hide");
    }
    const Pixmap& Picture() const override { return picture_; }
    void SetPicture(const Pixmap& picture) override {
        picture_ = picture;
        notes_.push_back("picture");
    }

  private:
    Notes& notes_;
    bool isVisible_ = true;
    Pixmap picture_;
};

// A main window, a second one, a picture control and a turtle; the main window is drawn on.
class DrawingTest : public testing::Test {
  protected:
    DrawingTest() {
        TheEngine();
        ResetRunState();
        ResetSettings();
        drawing = {&window, &window, &turtle, false};
        pumped = &notes;
        hooks.PumpEvents = [] { pumped->push_back("pump"); };
    }
    ~DrawingTest() override {
        drawing = {};
        hooks.PumpEvents = nullptr;
        ResetSettings();
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }

    // What one sentence does.
    Notes Done(std::u16string_view sentence) {
        notes.clear();
        RunComnd(sentence);
        return notes;
    }
    void StandAt(float x, float y) {
        window.CurrentX = x;
        window.CurrentY = y;
    }

    Notes notes;
    RecordingSurface window{u"ウィンドウ１", true, notes};
    RecordingSurface otherWindow{u"ウィンドウ２", true, notes};
    RecordingSurface picture{u"ピクチャ１", false, notes};
    RecordingTurtle turtle{notes};
    static inline Notes* pumped = nullptr;
};

}  // namespace velm
