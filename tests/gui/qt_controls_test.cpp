// What all controls have in common: members, events, containers, and their end in their own events.
#include <QElapsedTimer>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>

#include "gui/controls.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_cursors.h"
#include "platform/qt/qt_keys.h"
#include "platform/qt/qt_removal.h"

namespace velm {
namespace {

constexpr ControlClass kWithLook[] = {ControlClass::kButton,      ControlClass::kPictureButton,
                                      ControlClass::kCheck,       ControlClass::kOption,
                                      ControlClass::kText,        ControlClass::kMultiLineText,
                                      ControlClass::kWrappedText, ControlClass::kRichText};

TEST_F(Controls, StartHidden) {
    for (const ControlClass which : kWithLook) {
        const auto control = MakeQtControl(which, &window, listener);
        EXPECT_EQ(control->Get(u"Visible", {}), MemberValue(false));
        EXPECT_EQ(control->Get(u"Enabled", {}), MemberValue(true));
        window.show();
        EXPECT_EQ(control->Get(u"Visible", {}), MemberValue(false)) << "shown with its window";
    }
}

TEST_F(Controls, CommonMembersKeepWhatTheyGet) {
    for (const ControlClass which : kWithLook) {
        const auto control = Make(which);
        RoundTrip(*control, u"Visible", false);
        RoundTrip(*control, u"Visible", true);
        RoundTrip(*control, u"Enabled", false);
        RoundTrip(*control, u"Enabled", true);
        RoundTrip(*control, u"ForeColor", Number(0x0000FF));
        RoundTrip(*control, u"BackColor", Number(0x00FF00));
        RoundTrip(*control, u"BackColor", Number(system_color::kWindow));
        RoundTrip(*control, u"MousePointer", Number(11));
        RoundTrip(*control, u"MousePointer", Number(0));
        RoundTrip(*control, u"ToolTipText", Text(u"<b>ヒント"));
        RoundTrip(*control, u"TabStop", false);
        RoundTrip(*control, u"TabStop", true);
        RoundTrip(*control, u"OLEDropMode", Number(0));
        RoundTrip(*control, u"Tag", Text(u"情報"));
    }
}

TEST_F(Controls, FontMembersKeepWhatTheyGet) {
    for (const ControlClass which : kWithLook) {
        const auto control = Make(which);
        EXPECT_EQ(control->Get(u"FontSize", {}), Number(9));
        for (const char16_t* member :
             {u"FontBold", u"FontItalic", u"FontUnderline", u"FontStrikethru", u"Font.Bold",
              u"Font.Italic", u"Font.Underline", u"Font.Strikethrough"}) {
            RoundTrip(*control, member, true);
            RoundTrip(*control, member, false);
        }
        RoundTrip(*control, u"FontName", Text(u"ＭＳ ゴシック"));
        RoundTrip(*control, u"Font.Name", Text(u"Serif"));
        RoundTrip(*control, u"FontSize", Number(10.5));
        RoundTrip(*control, u"Font.Size", Number(24));
        RoundTrip(*control, u"FontCharset", Number(0));
        RoundTrip(*control, u"Font.Charset", Number(128));
        EXPECT_EQ(WidgetOf(*control)->font().pixelSize(), 32);
        EXPECT_EQ(FailureOf([&] { control->Set(u"FontSize", Number(0), {}); }), failure::kBadCall);
    }
}

TEST_F(Controls, NamesIgnoreLetterCase) {
    const auto button = Make(ControlClass::kButton);
    button->Set(u"cAPTION", Text(u"題"), {});
    EXPECT_EQ(button->Get(u"CAPTION", {}), Text(u"題"));
}

TEST_F(Controls, UnknownMembersFail) {
    const auto button = Make(ControlClass::kButton);
    EXPECT_EQ(FailureOf([&] { button->Get(u"UNKNOWN", {}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button->Set(u"hWnd", Number(1), {}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button->Call(u"Caption", {}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button->Get(u"SetFocus", {}); }), failure::kNoSuchMember);
    EXPECT_NO_THROW(button->SetCanvas(nullptr));  // none is what it has
    EXPECT_EQ(FailureOf([&] { button->SetPicture({}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button->Set(u"MousePointer", Text(u"文"), {}); }),
              failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([&] { button->Set(u"MousePointer", Number(100), {}); }), failure::kBadCall);
}

TEST_F(Controls, PlainClassesAlone) {
    for (const ControlClass which :
         {ControlClass::kWindow, ControlClass::kPicture, ControlClass::kTurtle}) {
        EXPECT_EQ(FailureOf([&] { MakeQtControl(which, &window, listener); }), failure::kBadCall);
    }
}

TEST_F(Controls, SizesAreThoseOfTheScript) {
    for (const ControlClass which : kWithLook) {
        for (const PixelBox& box :
             {PixelBox{3, 4, 65, 18}, PixelBox{3, 4, 65, 12}, PixelBox{0, 0, 5, 1}}) {
            const auto control = Make(which, box);
            EXPECT_EQ(control->Geometry(), box) << static_cast<int>(which);
        }
    }
}

TEST_F(Controls, SystemColorsComeFromThePalette) {
    EXPECT_EQ(ColorOfScript(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(ColorOfScript(system_color::kWindow), QApplication::palette().color(QPalette::Base));
    EXPECT_EQ(ColorOfScript(INT32_MIN + 99), QColor(Qt::black));
    EXPECT_EQ(MemberToColor(Number(0x80000005)), system_color::kWindow);
    EXPECT_EQ(SystemPixel(5), static_cast<std::uint32_t>(
                                  ScriptColor(QApplication::palette().color(QPalette::Base))));
}

TEST_F(Controls, PointersHaveTheirShapes) {
    const auto button = Make(ControlClass::kButton);
    button->Set(u"MousePointer", Number(2), {});
    EXPECT_EQ(WidgetOf(*button)->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(PointerShape(3), Qt::IBeamCursor);
    EXPECT_EQ(PointerShape(8), Qt::SizeFDiagCursor);
    EXPECT_EQ(PointerShape(11), Qt::WaitCursor);
    EXPECT_EQ(PointerShape(-1), Qt::ArrowCursor);
    EXPECT_EQ(FailureOf([&] { button->Set(u"MouseIcon", Text(u"C:\\nowhere.cur"), {}); }),
              failure::kFileNotFound);
    EXPECT_EQ(button->Get(u"MouseIcon", {}), Text(u""));
}

TEST_F(Controls, MouseIsToldInPixelsOfTheControl) {
    const auto text = Make(ControlClass::kMultiLineText, {20, 30, 100, 80});
    Show();
    Mouse(InnerOf(*text), QEvent::MouseButtonPress, {7, 8}, Qt::RightButton, Qt::ShiftModifier);
    ASSERT_FALSE(listener.events.empty());
    const ControlEvent told = listener.events.front();
    EXPECT_EQ(told.kind, EventKind::kMouseDown);
    EXPECT_EQ(told.button, mouse_button::kRight);
    EXPECT_EQ(told.shift, shift_state::kShift);
    const QPoint corner = InnerOf(*text)->pos();
    EXPECT_EQ(told.x, 7 + corner.x());
    EXPECT_EQ(told.y, 8 + corner.y());
    EXPECT_EQ(listener.TakePlain(), Told{"down"}) << "told once, though inner and outer saw it";
}

TEST_F(Controls, DoubleClickToldAClickBefore) {
    const auto text = Make(ControlClass::kText);
    Show();
    DoubleClick(WidgetOf(*text));
    EXPECT_EQ(listener.TakePlain(), (Told{"down", "up", "click", "double", "up"}));
    const auto button = Make(ControlClass::kButton);
    DoubleClick(WidgetOf(*button));
    EXPECT_EQ(listener.TakePlain(), (Told{"down", "up", "click", "down", "up", "click"}));
}

TEST_F(Controls, OnlyTheLeftButtonClicksAndOnlyInside) {
    const auto text = Make(ControlClass::kText);
    Show();
    Click(WidgetOf(*text), {5, 5}, Qt::MiddleButton);
    EXPECT_EQ(listener.TakePlain(), (Told{"down", "up"}));
    Mouse(WidgetOf(*text), QEvent::MouseButtonPress, {5, 5});
    Mouse(WidgetOf(*text), QEvent::MouseButtonRelease, {500, 5});
    EXPECT_EQ(listener.TakePlain(), (Told{"down", "up"}));
}

TEST_F(Controls, DisabledControlsTellNothing) {
    for (const ControlClass which : kWithLook) {
        const auto control = Make(which);
        control->Set(u"Enabled", false, {});
        Show();
        Click(InnerOf(*control));
        Key(WidgetOf(*control), Qt::Key_A, "a");
        EXPECT_EQ(listener.TakePlain(), Told{}) << static_cast<int>(which);
    }
}

TEST_F(Controls, KeysHaveTheirNumbers) {
    const auto number = [](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                           quint32 scan = 0) {
        return VirtualKey(QKeyEvent(QEvent::KeyPress, key, modifiers, scan, 0, 0));
    };
    EXPECT_EQ(number(Qt::Key_A), 65);
    EXPECT_EQ(number(Qt::Key_9), 57);
    EXPECT_EQ(number(Qt::Key_9, Qt::KeypadModifier), 105);
    EXPECT_EQ(number(Qt::Key_F1), 112);
    EXPECT_EQ(number(Qt::Key_F12), 123);
    EXPECT_EQ(number(Qt::Key_Return), 13);
    EXPECT_EQ(number(Qt::Key_Enter, Qt::KeypadModifier), 13);
    EXPECT_EQ(number(Qt::Key_Backspace), 8);
    EXPECT_EQ(number(Qt::Key_Tab), 9);
    EXPECT_EQ(number(Qt::Key_Backtab, Qt::ShiftModifier), 9);
    EXPECT_EQ(number(Qt::Key_Escape), 27);
    EXPECT_EQ(number(Qt::Key_Space), 32);
    EXPECT_EQ(number(Qt::Key_Left), 37);
    EXPECT_EQ(number(Qt::Key_Down), 40);
    EXPECT_EQ(number(Qt::Key_Shift), 16);
    EXPECT_EQ(number(Qt::Key_Control), 17);
    EXPECT_EQ(number(Qt::Key_Alt), 18);
    EXPECT_EQ(number(Qt::Key_Colon), 186);
    EXPECT_EQ(number(Qt::Key_Slash), 191);
    EXPECT_EQ(number(Qt::Key_At), 192);
    EXPECT_EQ(number(Qt::Key_BracketLeft), 219);
    EXPECT_EQ(number(Qt::Key_AsciiCircum), 222);
    EXPECT_EQ(number(Qt::Key_Underscore), 226);
    EXPECT_EQ(number(Qt::Key_Asterisk, Qt::ShiftModifier, 17), 56) << "on the key of 8";
    EXPECT_EQ(number(Qt::Key_unknown), 0);
    EXPECT_EQ(ShiftState(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
}

TEST_F(Controls, KeysAreToldBeforeTheyAct) {
    const auto text = Make(ControlClass::kText);
    Show();
    Key(WidgetOf(*text), Qt::Key_A, "a");
    EXPECT_EQ(listener.TakePlain(), (Told{"key", "typed", "change", "keyup"}));
    Key(WidgetOf(*text), Qt::Key_Home);
    EXPECT_EQ(listener.TakePlain(), (Told{"key", "keyup"}));
    Key(WidgetOf(*text), Qt::Key_B, "b", Qt::AltModifier);
    EXPECT_EQ(listener.TakePlain(), (Told{"key", "keyup"})) << "a key with alt types nothing";
}

TEST_F(Controls, RepeatedKeysAreToldAsOftenAsTheyCome) {
    const auto text = Make(ControlClass::kText);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a", true);
    QApplication::sendEvent(WidgetOf(*text), &repeat);
    QApplication::sendEvent(WidgetOf(*text), &repeat);
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"aa"));
    EXPECT_EQ(listener.TakePlain(), (Told{"key", "typed", "change", "key", "typed", "change"}));
}

TEST_F(Controls, TypedCharactersMayBeDropped) {
    for (const ControlClass which :
         {ControlClass::kText, ControlClass::kMultiLineText, ControlClass::kRichText}) {
        const auto text = Make(which);
        listener.answer = [](const ControlEvent& event) {
            return event.kind == EventKind::kKeyPress && event.text == u"b";
        };
        for (const char* letter : {"a", "b", "c"}) {
            Key(WidgetOf(*text), Qt::Key_A + (*letter - 'a'), letter);
        }
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"ac"));
    }
}

TEST_F(Controls, AnInputMethodTypesWhatItCommits) {
    const auto text = Make(ControlClass::kText);
    Compose(WidgetOf(*text), "にほん");
    Key(WidgetOf(*text), Qt::Key_Return, "\r");
    EXPECT_EQ(listener.TakePlain(), Told{}) << "composing is quiet";
    listener.answer = [](const ControlEvent& event) { return event.text == u"本"; };
    Compose(WidgetOf(*text), "", "日本𠮷");
    EXPECT_EQ(listener.events.front().text, u"日");
    EXPECT_EQ(listener.TakePlain(), (Told{"typed", "typed", "typed", "change"}));
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"日𠮷"));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, "\r");
    QApplication::sendEvent(WidgetOf(*text), &release);
    EXPECT_EQ(listener.TakePlain(), Told{}) << "the Enter that committed";
}

TEST_F(Controls, FocusIsTold) {
    const auto first = Make(ControlClass::kText, {0, 0, 50, 20});
    const auto second = Make(ControlClass::kButton, {0, 30, 50, 20});
    Show();
    first->Call(u"SetFocus", {});
    listener.events.clear();
    second->Call(u"SetFocus", {});
    EXPECT_EQ(listener.Take(), (Told{"out", "in"}));
    EXPECT_EQ(window.focusWidget(), WidgetOf(*second));
}

TEST_F(Controls, TabIndexOrdersTheTabKey) {
    const auto first = Make(ControlClass::kText, {0, 0, 50, 20});
    const auto second = Make(ControlClass::kText, {0, 20, 50, 20});
    const auto third = Make(ControlClass::kText, {0, 40, 50, 20});
    EXPECT_EQ(third->Get(u"TabIndex", {}), Number(2));
    RoundTrip(*third, u"TabIndex", Number(1));
    EXPECT_EQ(second->Get(u"TabIndex", {}), Number(2));
    Show();
    first->Call(u"SetFocus", {});
    Key(WidgetOf(*first), Qt::Key_Tab, "\t");
    EXPECT_EQ(window.focusWidget(), WidgetOf(*third));
    second->Set(u"TabStop", false, {});
    Key(WidgetOf(*third), Qt::Key_Tab, "\t");
    EXPECT_EQ(window.focusWidget(), WidgetOf(*first)) << "second is no stop";
    EXPECT_EQ(FailureOf([&] { first->Set(u"TabIndex", Number(-1), {}); }), failure::kBadCall);
}

TEST_F(Controls, OrderPutsInFrontAndBehind) {
    const auto low = Make(ControlClass::kButton);
    const auto high = Make(ControlClass::kText);
    const auto on_top = [&] { return window.childAt(20, 20); };
    EXPECT_EQ(on_top(), WidgetOf(*high));
    low->Call(u"ZOrder", {});
    EXPECT_EQ(on_top(), WidgetOf(*low));
    low->Call(u"ZOrder", {Number(1)});
    EXPECT_EQ(on_top(), WidgetOf(*high));
    low->Set(u"ZOrder", Number(0), {});
    EXPECT_EQ(on_top(), WidgetOf(*low));
}

TEST_F(Controls, DropsOfFilesAndTexts) {
    const auto text = Make(ControlClass::kMultiLineText);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/tmp/a b.txt"), QUrl::fromLocalFile("/tmp/二")});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(InnerOf(*text), &enter);
    EXPECT_FALSE(enter.isAccepted()) << "nobody would take it";
    listener.answer = [](const ControlEvent& event) { return event.kind == EventKind::kDragOver; };
    QDragEnterEvent again({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(InnerOf(*text), &again);
    EXPECT_TRUE(again.isAccepted());
    EXPECT_EQ(listener.Take(), (Told{"over", "over"}));
    QDropEvent drop({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(InnerOf(*text), &drop);
    ASSERT_EQ(listener.events.size(), 1U);
    EXPECT_EQ(listener.events[0].files,
              (std::vector<std::u16string>{u"C:\\tmp\\a b.txt", u"C:\\tmp\\二"}));
    listener.events.clear();
    QMimeData words;
    words.setText("一\n二");
    QDragEnterEvent third({5, 5}, Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(InnerOf(*text), &third);
    listener.events.clear();
    QDropEvent textDrop({5, 5}, Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(InnerOf(*text), &textDrop);
    ASSERT_EQ(listener.events.size(), 1U);
    EXPECT_EQ(listener.events[0].text, u"一\r\n二");
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"")) << "the script decides what becomes of it";
    text->Set(u"OLEDropMode", Number(0), {});
    EXPECT_FALSE(InnerOf(*text)->acceptDrops());
}

TEST_F(Controls, EveryControlMayEndInItsOwnEvents) {
    const EventKind kinds[] = {
        EventKind::kMouseDown, EventKind::kMouseUp,  EventKind::kClick,
        EventKind::kKeyDown,   EventKind::kKeyPress, EventKind::kChange,
        EventKind::kFocusIn,   EventKind::kFocusOut, EventKind::kDoubleClick};
    Show();
    for (const ControlClass which : kWithLook) {
        for (const EventKind kind : kinds) {
            auto control = Make(which);
            const QPointer<QWidget> widget = WidgetOf(*control);
            const QPointer<QWidget> inner = InnerOf(*control);
            int toldAfterwards = 0;
            listener.answer = [&](const ControlEvent& event) {
                if (control == nullptr) ++toldAfterwards;
                if (event.kind == kind) control.reset();
                return false;
            };
            if (control) control->Call(u"SetFocus", {});
            if (inner) DoubleClick(inner);
            if (widget) Key(widget, Qt::Key_A, "a");
            if (widget) Key(widget, Qt::Key_Space, " ");
            window.setFocus();
            EXPECT_EQ(toldAfterwards, 0) << static_cast<int>(which) << NameOf(kind);
            listener.answer = nullptr;
            control.reset();
            DeleteWhatIsFree();
            QCoreApplication::processEvents();
            EXPECT_EQ(widget, nullptr) << "deleted by the next pump";
        }
    }
}

TEST_F(Controls, AControlThatEndsIsHiddenAtOnce) {
    auto button = Make(ControlClass::kButton);
    Show();
    const QPointer<QWidget> widget = WidgetOf(*button);
    listener.answer = [&](const ControlEvent& event) {
        if (event.kind != EventKind::kClick) return false;
        button.reset();
        EXPECT_FALSE(widget.isNull()) << "the toolkit is still in its event";
        EXPECT_TRUE(widget->isHidden());
        QCoreApplication::processEvents();
        EXPECT_FALSE(widget.isNull()) << "a pump within the event doesn't delete it either";
        return false;
    };
    Click(widget);
    DeleteWhatIsFree();
    QCoreApplication::processEvents();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Controls, ManyControlsMadeAndEndedWithinOneEventDontPileUp) {
    const auto button = Make(ControlClass::kButton);
    listener.answer = [&](const ControlEvent& event) {
        if (event.kind != EventKind::kClick) return false;
        for (int i = 0; i < 100; ++i) {
            auto other = Make(ControlClass::kText);
            other.reset();
            QCoreApplication::processEvents();
        }
        EXPECT_LT(window.findChildren<QWidget*>().size(), 10);
        return false;
    };
    Click(WidgetOf(*button));
}

TEST_F(Controls, AControlOutlivesItsWindow) {
    auto other = std::make_unique<QWidget>();
    const auto button = MakeQtControl(ControlClass::kButton, other.get(), listener);
    other.reset();
    EXPECT_EQ(FailureOf([&] { button->Get(u"Caption", {}); }), failure::kNothingThere);
    EXPECT_EQ(FailureOf([&] { button->SetContainer(*button); }), failure::kNothingThere);
    button->SetGeometry({1, 2, 3, 4});
    EXPECT_EQ(button->Geometry(), PixelBox());
}

TEST_F(Controls, OnlyContainersHoldControls) {
    const auto button = Make(ControlClass::kButton);
    const auto text = Make(ControlClass::kText);
    EXPECT_EQ(FailureOf([&] { text->SetContainer(*button); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] { text->SetContainer(*text); }), failure::kBadCall);
}

TEST_F(Controls, AThousandAreMadeWithinASecond) {
    QElapsedTimer time;
    time.start();
    std::vector<std::unique_ptr<ToolkitControl>> controls;
    for (int i = 0; i < 1000; ++i) {
        controls.push_back(Make(kWithLook[static_cast<std::size_t>(i) % std::size(kWithLook)]));
    }
    RecordProperty("milliseconds", static_cast<int>(time.elapsed()));
    EXPECT_LT(time.elapsed(), 1000);
}

// Against the same widget without a filter, so that the toolkit's own share doesn't count.
TEST_F(Controls, AMoveOfTheMouseIsCheap) {
    class Silent : public ControlListener {
      public:
        bool OnEvent(const ControlEvent& /*event*/) override { return false; }
    } silent;
    const auto text = MakeQtControl(ControlClass::kText, &window, silent);
    constexpr int kMoves = 20'000;
    const auto measure = [](QWidget* widget) {
        QElapsedTimer time;
        time.start();
        for (int i = 0; i < kMoves; ++i)
            Mouse(widget, QEvent::MouseMove, {i % 50, 5}, Qt::NoButton);
        return time.nsecsElapsed() / kMoves;
    };
    QtSurface& surface = dynamic_cast<QtControl&>(*text).Surface();
    const qint64 with = measure(surface.Widget());
    surface.Widget()->removeEventFilter(&surface);
    const qint64 without = measure(surface.Widget());
    RecordProperty("nanoseconds", static_cast<int>(with - without));
    EXPECT_LT(with - without, 5000);
}

}  // namespace
}  // namespace velm
