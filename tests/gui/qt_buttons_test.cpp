// Buttons, check boxes and option buttons.
#include <QAbstractButton>
#include <QImage>

#include "gui/controls.h"

namespace velm {
namespace {

TEST_F(Controls, CaptionsAreKeptAndNamed) {
    for (const ControlClass which : {ControlClass::kButton, ControlClass::kPictureButton,
                                     ControlClass::kCheck, ControlClass::kOption}) {
        const auto button = Make(which);
        RoundTrip(*button, u"Caption", Text(u"一行目(&A)\r\n二行目 && 三"));
        EXPECT_EQ(WidgetOf(*button)->accessibleName(), "一行目(A) 二行目 & 三");
    }
}

// Where something was painted besides the background of the upper left corner.
QRect Inked(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).lightness() < 110) inked |= QRect(x, y, 1, 1);
        }
    }
    return inked;
}

TEST_F(Controls, JapaneseCaptionsFitTheClassicSizes) {
    const auto button = Make(ControlClass::kButton, {0, 0, 65, 25});
    button->Set(u"Caption", Text(u"ボタン"), {});
    const auto check = Make(ControlClass::kCheck, {0, 30, 65, 17});
    check->Set(u"Caption", Text(u"■■■■"), {});
    const QRect inside = Inked(*WidgetOf(*check));
    EXPECT_LE(inside.right(), 63) << "four wide characters beside the mark";
    EXPECT_GE(inside.top(), 1);
    EXPECT_LE(inside.bottom(), 15);
    EXPECT_GE(inside.width(), 40);
    EXPECT_GE(Inked(*WidgetOf(*button)).height(), 7) << "the caption is painted";
    const auto option = Make(ControlClass::kOption, {0, 60, 73, 17});
    option->Set(u"Caption", Text(u"■■■■■"), {});
    EXPECT_LE(Inked(*WidgetOf(*option)).right(), 71) << "five, a little narrower";
    EXPECT_LE(Inked(*WidgetOf(*option)).height(), 14) << "on one line";
}

TEST_F(Controls, ButtonsClick) {
    for (const ControlClass which : {ControlClass::kButton, ControlClass::kPictureButton}) {
        const auto button = Make(which);
        Show();
        Click(WidgetOf(*button));
        EXPECT_EQ(listener.TakePlain(), (Told{"down", "up", "click"}));
        Click(WidgetOf(*button), {5, 5}, Qt::RightButton);
        EXPECT_EQ(listener.TakePlain(), (Told{"down", "up"}));
        Key(WidgetOf(*button), Qt::Key_Space, " ");
        EXPECT_EQ(listener.TakePlain(), (Told{"key", "typed", "keyup", "click"}));
        Key(WidgetOf(*button), Qt::Key_Return, "\r");
        EXPECT_EQ(listener.TakePlain(), Told{"click"});
        button->Set(u"Value", true, {});
        EXPECT_EQ(listener.TakePlain(), Told{"click"});
        EXPECT_EQ(button->Get(u"Value", {}), MemberValue(false));
    }
}

TEST_F(Controls, EnterAndEscapePressTheirButtons) {
    const auto ok = Make(ControlClass::kButton);
    const auto cancel = Make(ControlClass::kButton);
    const auto text = Make(ControlClass::kText);
    const auto lines = Make(ControlClass::kMultiLineText);
    Recorder other;
    const auto third = MakeQtControl(ControlClass::kButton, &window, other);
    third->Set(u"Visible", true, {});
    Key(WidgetOf(*text), Qt::Key_Return, "\r");
    EXPECT_EQ(listener.TakePlain(), (Told{"key", "typed", "keyup"})) << "no such button yet";
    RoundTrip(*ok, u"Default", true);
    RoundTrip(*cancel, u"Cancel", true);
    Key(WidgetOf(*text), Qt::Key_Return, "\r");
    EXPECT_EQ(listener.TakePlain(), Told{"click"});
    Key(WidgetOf(*lines), Qt::Key_Return, "\r");
    EXPECT_EQ(listener.TakePlain(), Told{"click"});
    Key(WidgetOf(*lines), Qt::Key_Return, "\r", Qt::ControlModifier);
    EXPECT_EQ(lines->Get(u"Text", {}), Text(u"\r\n"));
    listener.events.clear();
    Key(WidgetOf(*text), Qt::Key_Escape, "\x1b");
    EXPECT_EQ(listener.TakePlain(), Told{"click"});
    third->Set(u"Default", true, {});
    EXPECT_EQ(ok->Get(u"Default", {}), MemberValue(false)) << "one a window";
    Key(WidgetOf(*text), Qt::Key_Enter, "\r", Qt::KeypadModifier);
    EXPECT_EQ(other.TakePlain(), Told{"click"});
    third->Set(u"Enabled", false, {});
    Key(WidgetOf(*text), Qt::Key_Return, "\r");
    EXPECT_EQ(other.TakePlain(), Told{});
    RoundTrip(*cancel, u"Cancel", false);
}

TEST_F(Controls, ChecksTellOfEveryChange) {
    const auto check = Make(ControlClass::kCheck);
    EXPECT_EQ(check->Get(u"Value", {}), Number(0));
    Show();
    Click(WidgetOf(*check));
    EXPECT_EQ(check->Get(u"Value", {}), Number(1));
    EXPECT_EQ(listener.TakePlain(), (Told{"down", "up", "click"}));
    RoundTrip(*check, u"Value", Number(2));
    EXPECT_EQ(listener.TakePlain(), Told{"click"});
    check->Set(u"Value", Number(2), {});
    EXPECT_EQ(listener.TakePlain(), Told{}) << "nothing changed";
    Click(WidgetOf(*check));
    check->Set(u"Value", true, {});
    EXPECT_EQ(check->Get(u"Value", {}), Number(1));
    EXPECT_EQ(FailureOf([&] { check->Set(u"Value", Number(3), {}); }), failure::kBadCall);
    RoundTrip(*check, u"Alignment", Number(1));
}

TEST_F(Controls, OneOptionOfAContainerIsOn) {
    QWidget frame(&window);
    const auto first = Make(ControlClass::kOption, {0, 0, 50, 20});
    const auto second = Make(ControlClass::kOption, {0, 20, 50, 20});
    const auto other = Make(ControlClass::kOption, {0, 0, 50, 20}, &frame);
    RoundTrip(*first, u"Value", true);
    RoundTrip(*other, u"Value", true);
    EXPECT_EQ(listener.TakePlain(), (Told{"click", "click"}));
    RoundTrip(*second, u"Value", true);
    EXPECT_EQ(first->Get(u"Value", {}), MemberValue(false));
    EXPECT_EQ(other->Get(u"Value", {}), MemberValue(true)) << "in another container";
    RoundTrip(*second, u"Value", false);
    EXPECT_EQ(listener.TakePlain(), Told{"click"}) << "going off is no click";
    Show();
    DoubleClick(WidgetOf(*first));
    EXPECT_EQ(first->Get(u"Value", {}), MemberValue(true));
    const Told told = listener.TakePlain();
    EXPECT_EQ(std::count(told.begin(), told.end(), "double"), 1);
    RoundTrip(*first, u"Alignment", Number(1));
}

TEST_F(Controls, ArrowsGoThroughTheOptionsOfAContainer) {
    const auto first = Make(ControlClass::kOption, {0, 0, 50, 20});
    const auto off = Make(ControlClass::kOption, {0, 20, 50, 20});
    const auto last = Make(ControlClass::kOption, {0, 40, 50, 20});
    off->Set(u"Enabled", false, {});
    first->Set(u"Value", true, {});
    Show();
    Key(WidgetOf(*first), Qt::Key_Down);
    EXPECT_EQ(last->Get(u"Value", {}), MemberValue(true));
    EXPECT_EQ(first->Get(u"Value", {}), MemberValue(false));
    EXPECT_EQ(window.focusWidget(), WidgetOf(*last));
    Key(WidgetOf(*last), Qt::Key_Right);
    EXPECT_EQ(first->Get(u"Value", {}), MemberValue(true));
    Key(WidgetOf(*first), Qt::Key_Left);
    EXPECT_EQ(last->Get(u"Value", {}), MemberValue(true));
    Click(WidgetOf(*last));
    EXPECT_EQ(last->Get(u"Value", {}), MemberValue(true)) << "a click never turns one off";
}

TEST_F(Controls, PictureButtonsShowPictureAndBackground) {
    const auto button = Make(ControlClass::kPictureButton, {0, 0, 40, 40});
    button->Set(u"BackColor", Number(0x00FF00), {});
    button->SetPicture(Pixmap(10, 10, 0x0000FF));
    const auto at = [&](int x, int y) {
        return WidgetOf(*button)->grab().toImage().pixelColor(x, y);
    };
    EXPECT_EQ(at(20, 20), QColor(255, 0, 0));
    EXPECT_EQ(at(8, 20), QColor(0, 255, 0));
    RoundTrip(*button, u"MaskColor", Number(0x0000FF));
    RoundTrip(*button, u"UseMaskColor", true);
    EXPECT_EQ(at(20, 20), QColor(0, 255, 0)) << "the mask lets the background through";
    button->Set(u"UseMaskColor", false, {});
    EXPECT_EQ(at(20, 20), QColor(255, 0, 0));
    button->SetPicture({});
    EXPECT_EQ(at(20, 20), QColor(0, 255, 0));
}

}  // namespace
}  // namespace velm
