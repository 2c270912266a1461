// Windows: kinds, states, sizes, their end, and modal ones.
#include "platform/qt/qt_window.h"

#include <gtest/gtest.h>

#include <QBitmap>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <memory>

#include "data/failure.h"
#include "gui/recording_listener.h"
#include "platform/qt/qt_canvas_view.h"

namespace velm {
namespace {

class Windows : public testing::Test {
  protected:
    Windows() { window_->SetClientSize(300, 200); }

    QWidget& Frame() { return *window_->Surface().Widget(); }
    void Show() {
        window_->Call(u"Show", {});
        Deliver();
        listener_.events.clear();
    }
    Qt::WindowFlags Flags() { return Frame().windowHandle()->flags(); }
    void Set(std::u16string_view member, const MemberValue& value) {
        window_->Set(member, value, {});
    }
    double Number(std::u16string_view member) { return MemberToNumber(window_->Get(member, {})); }
    bool Flag(std::u16string_view member) { return MemberToBool(window_->Get(member, {})); }

    RecordingListener listener_;
    std::unique_ptr<QtWindow> window_ = std::make_unique<QtWindow>(listener_);
};

TEST_F(Windows, StartHiddenAndAreShown) {
    EXPECT_FALSE(Flag(u"Visible"));
    Show();
    EXPECT_TRUE(Flag(u"Visible"));
    window_->Call(u"Hide", {});
    EXPECT_FALSE(Flag(u"Visible"));
    Set(u"Visible", true);
    EXPECT_TRUE(Frame().isVisible());
}

TEST_F(Windows, TheCaptionIsKeptAsItIs) {
    Set(u"Caption", std::u16string(u"一[*]\r\n二"));
    EXPECT_EQ(MemberToText(window_->Get(u"Caption", {})), u"一[*]\r\n二");
    EXPECT_EQ(Frame().windowTitle(), QStringLiteral("一[*][*] 二"));
}

TEST_F(Windows, UnknownMembersFail) {
    EXPECT_THROW(window_->Get(u"NoSuchThing", {}), Failure);
    EXPECT_THROW(window_->SetContainer(*window_), Failure);
}

// --- Kinds

struct KindCase {
    double kind;
    bool isTool;
    bool isFrameless;
    bool isFixed;
    bool hasMax;
};

class WindowKinds : public Windows, public testing::WithParamInterface<KindCase> {};

TEST_P(WindowKinds, LookAsTheyShall) {
    const KindCase& expected = GetParam();
    Set(u"Kind", expected.kind);
    Show();
    EXPECT_EQ(Number(u"Kind"), expected.kind);
    EXPECT_EQ((Flags() & Qt::WindowType_Mask) == Qt::Tool, expected.isTool);
    EXPECT_EQ(Flags().testFlag(Qt::FramelessWindowHint), expected.isFrameless);
    EXPECT_EQ(Flags().testFlag(Qt::WindowMaximizeButtonHint), expected.hasMax);
    EXPECT_EQ(Frame().minimumSize() == Frame().maximumSize(), expected.isFixed);
}

TEST_P(WindowKinds, CanBeTakenWhileOnScreen) {
    Show();
    const bool wasWhole = GetParam().kind == 5;
    Set(u"Kind", GetParam().kind);
    Deliver();
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ((Flags() & Qt::WindowType_Mask) == Qt::Tool, GetParam().isTool);
    EXPECT_EQ(Flags().testFlag(Qt::FramelessWindowHint), GetParam().isFrameless);
    if (!wasWhole) {
        EXPECT_EQ(window_->ClientWidth(), 300);
    }
    Set(u"Kind", 0.0);
    Deliver();
    EXPECT_TRUE(Flags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window_->ClientWidth(), 300);
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, WindowKinds,
    testing::Values(KindCase{0, false, false, false, true}, KindCase{1, false, false, true, false},
                    KindCase{2, false, true, false, false}, KindCase{3, true, false, false, false},
                    KindCase{4, true, false, true, false}, KindCase{5, false, true, false, false}));

TEST_F(Windows, TheWholeScreenIsCovered) {
    Set(u"Kind", 5.0);
    Show();
    EXPECT_EQ(Frame().geometry(), Frame().screen()->geometry());
}

TEST_F(Windows, OtherKindsAreRefused) {
    EXPECT_THROW(Set(u"Kind", 6.0), Failure);
    EXPECT_THROW(Set(u"Kind", -1.0), Failure);
    EXPECT_EQ(Number(u"Kind"), 0);
}

TEST_F(Windows, ButtonsOfTheFrameComeAndGo) {
    Show();
    Set(u"MinButton", false);
    EXPECT_FALSE(Flags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_TRUE(Flags().testFlag(Qt::WindowMaximizeButtonHint));
    Set(u"MaxButton", false);
    EXPECT_FALSE(Flags().testFlag(Qt::WindowMaximizeButtonHint));
    Set(u"ControlBox", false);
    EXPECT_FALSE(Flags().testFlag(Qt::WindowCloseButtonHint));
    Set(u"ControlBox", true);
    Set(u"MinButton", true);
    EXPECT_TRUE(Flags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_TRUE(Frame().isVisible());
}

TEST_F(Windows, StayOnTopWhenAsked) {
    Show();
    Set(u"TopMost", true);
    EXPECT_TRUE(Flags().testFlag(Qt::WindowStaysOnTopHint));
    Set(u"TopMost", false);
    EXPECT_FALSE(Flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(Windows, AreTransparentByDegrees) {
    Set(u"Alpha", 51.0);
    EXPECT_NEAR(Frame().windowOpacity(), 0.2, 0.01);
    EXPECT_EQ(Number(u"Alpha"), 51);
    EXPECT_THROW(Set(u"Alpha", 256.0), Failure);
}

TEST_F(Windows, CanBeMovedByTheirUserAlways) {
    EXPECT_TRUE(Flag(u"Moveable"));
    EXPECT_THROW(Set(u"Moveable", false), Failure);
}

// --- Place, size and state

TEST_F(Windows, TheClientAreaGetsItsSize) {
    EXPECT_EQ(window_->ClientWidth(), 300);
    EXPECT_EQ(window_->ClientHeight(), 200);
    Show();
    window_->SetClientSize(0, 0);
    EXPECT_EQ(window_->ClientWidth(), 0);
    EXPECT_EQ(window_->ClientHeight(), 0);
    window_->SetClientSize(-5, 100);
    EXPECT_EQ(window_->ClientWidth(), 0);
    EXPECT_EQ(window_->ClientHeight(), 100);
}

TEST_F(Windows, TheFrameHasThePlaceAndSizeThatWereSetBeforeItWasThere) {
    const PixelBox planned = {70, 80, 400, 300};
    window_->SetGeometry(planned);
    EXPECT_EQ(window_->Geometry(), planned);
    Show();
    EXPECT_EQ(window_->Geometry(), planned);
    EXPECT_EQ(Frame().frameGeometry(), QRect(70, 80, 400, 300));
}

TEST_F(Windows, TheFrameIsMovedAndSizedOnScreen) {
    Show();
    const PixelBox box = {33, 44, 222, 111};
    window_->SetGeometry(box);
    Deliver();
    EXPECT_EQ(window_->Geometry(), box);
}

TEST_F(Windows, AMaximisedWindowThatIsSizedIsPlainAgain) {
    Show();
    Set(u"WindowState", 2.0);
    Deliver();
    window_->SetGeometry({40, 50, 260, 170});
    Deliver();
    EXPECT_EQ(Number(u"WindowState"), 0);
    EXPECT_EQ(window_->Geometry(), (PixelBox{40, 50, 260, 170}));
}

TEST_F(Windows, AFixedWindowTakesTheScriptsSizes) {
    Set(u"Kind", 1.0);
    window_->SetClientSize(123, 45);
    EXPECT_EQ(window_->ClientWidth(), 123);
    Show();
    window_->SetClientSize(234, 56);
    EXPECT_EQ(window_->ClientWidth(), 234);
    EXPECT_EQ(window_->ClientHeight(), 56);
}

TEST_F(Windows, AFixedWindowKeepsItsSizeBesideOtherStates) {
    Set(u"Kind", 1.0);
    Show();
    const QSize size = Frame().size();
    Set(u"WindowState", 2.0);
    Deliver();
    EXPECT_GT(Frame().width(), size.width());
    Set(u"WindowState", 0.0);
    Deliver();
    EXPECT_EQ(Frame().size(), size);
    EXPECT_EQ(Frame().maximumSize(), size);
    Set(u"Kind", 5.0);
    Deliver();
    EXPECT_GT(Frame().width(), size.width());
    Set(u"Kind", 1.0);
    Deliver();
    EXPECT_EQ(Frame().size(), size);
    EXPECT_EQ(Frame().minimumSize(), size);
}

TEST_F(Windows, AChangeOfSizeIsToldOnceAndWithTheCanvas) {
    Canvas canvas(u"窓", true);
    window_->SetCanvas(&canvas);
    Show();
    int widthThen = 0;
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kResize) widthThen = canvas.Width();
        return false;
    };
    window_->SetClientSize(150, 60);
    window_->SetClientSize(150, 60);
    Deliver();
    EXPECT_EQ(listener_.Count(EventKind::kResize), 1);
    EXPECT_EQ(widthThen, 150);
    window_->SetCanvas(nullptr);
}

TEST_F(Windows, AHiddenWindowTellsNoSizesButSizesItsCanvas) {
    Canvas canvas(u"窓", true);
    window_->SetCanvas(&canvas);
    window_->SetClientSize(77, 66);
    EXPECT_EQ(canvas.Width(), 77);
    EXPECT_EQ(canvas.Height(), 66);
    EXPECT_EQ(listener_.Count(EventKind::kResize), 0);
    window_->SetCanvas(nullptr);
}

TEST_F(Windows, StatesComeAndGo) {
    Show();
    EXPECT_EQ(Number(u"WindowState"), 0);
    Set(u"WindowState", 2.0);
    Deliver();
    EXPECT_EQ(Number(u"WindowState"), 2);
    EXPECT_GT(window_->ClientWidth(), 300);
    Set(u"WindowState", 0.0);
    Deliver();
    EXPECT_EQ(Number(u"WindowState"), 0);
    EXPECT_EQ(window_->ClientWidth(), 300);
    Set(u"WindowState", 1.0);
    Deliver();
    EXPECT_EQ(Number(u"WindowState"), 1);
    EXPECT_TRUE(Flag(u"Visible"));
    EXPECT_THROW(Set(u"WindowState", 3.0), Failure);
}

TEST_F(Windows, AStateSetBeforehandIsTheFirstOne) {
    Set(u"WindowState", 2.0);
    Show();
    EXPECT_EQ(Number(u"WindowState"), 2);
    EXPECT_TRUE(Frame().isMaximized());
}

TEST_F(Windows, AShapeTakesTheFrameAwayAndGivesItBack) {
    Show();
    Pixmap mask(300, 200, kTransparentPixel);
    for (int x = 10; x < 20; ++x) mask.Row(5)[x] = 0;
    window_->SetShape(mask);
    EXPECT_TRUE(Flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(Frame().mask().boundingRect(), QRect(10, 5, 10, 1));
    window_->SetShape(Pixmap());
    EXPECT_TRUE(Frame().mask().isEmpty());
    EXPECT_FALSE(Flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(Windows, TheIconIsAPicture) {
    window_->SetPicture(Pixmap(32, 32, 0x0000FF));
    const QImage icon = Frame().windowIcon().pixmap(32, 32).toImage();
    EXPECT_EQ(icon.pixel(16, 16), qRgb(0xFF, 0, 0));
    window_->SetPicture(Pixmap());
    EXPECT_NE(Frame().windowIcon().pixmap(32, 32).toImage(), icon);
}

// --- Events

TEST_F(Windows, AClickOnTheClientAreaIsToldAfterItsParts) {
    Show();
    QTest::mouseClick(&window_->Client(), Qt::LeftButton, {}, QPoint(30, 40));
    std::vector<EventKind> heard;
    for (const ControlEvent& event : listener_.events) {
        if (event.kind != EventKind::kMouseMove) heard.push_back(event.kind);
    }
    EXPECT_EQ(heard, (std::vector<EventKind>{EventKind::kMouseDown, EventKind::kMouseUp,
                                             EventKind::kClick}));
    const ControlEvent& released = listener_.events[listener_.events.size() - 2];
    EXPECT_EQ(released.x, 30);
    EXPECT_EQ(released.y, 40);
}

TEST_F(Windows, KeysAreTheWindowsOwnWhileNoControlHasTheKeyboard) {
    Show();
    QTest::keyClick(Frame().focusWidget(), Qt::Key_A);
    EXPECT_EQ(listener_.Count(EventKind::kKeyDown), 1);
    EXPECT_EQ(window_->ActiveControl(), nullptr);
}

// --- The end

TEST_F(Windows, TheUserClosesAWindow) {
    Show();
    EXPECT_FALSE(Frame().close());
    ASSERT_GE(listener_.events.size(), 2U);
    EXPECT_EQ(listener_.Count(EventKind::kClosing), 1);
    EXPECT_EQ(listener_.events.back().kind, EventKind::kClosed);
    EXPECT_FALSE(Frame().isVisible());
}

TEST_F(Windows, TheAnswerKeepsAWindowOpen) {
    Show();
    bool byUser = false;
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kClosing) byUser = event.byUser;
        return event.kind == EventKind::kClosing;
    };
    Frame().close();
    EXPECT_TRUE(byUser);
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 0);
}

TEST_F(Windows, TheScriptClosesAWindow) {
    Show();
    bool byUser = true;
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kClosing) byUser = event.byUser;
        return false;
    };
    window_->Call(u"Unload", {});
    EXPECT_FALSE(byUser);
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 1);
    EXPECT_FALSE(Frame().isVisible());
}

TEST_F(Windows, TheClosingProcedureMayCloseAsWell) {
    Show();
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kClosing) window_->Call(u"Unload", {});
        return false;
    };
    Frame().close();
    EXPECT_EQ(listener_.Count(EventKind::kClosing), 1);
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 1);
}

class WindowEnds : public Windows, public testing::WithParamInterface<EventKind> {};

// Ends the window in the first event of a kind, then goes on using it as its user would.
TEST_P(WindowEnds, WithinItsOwnEvent) {
    Show();
    const QPointer<QWidget> frame = &Frame();
    const QPointer<QWidget> client = &window_->Client();
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == GetParam()) window_.reset();
        return false;
    };
    if (GetParam() == EventKind::kResize) {
        window_->SetClientSize(50, 50);
    } else {
        QTest::mouseClick(client.data(), Qt::LeftButton, {}, QPoint(5, 5));
        if (client != nullptr && window_ != nullptr) QTest::keyClick(client.data(), Qt::Key_B);
        if (frame != nullptr && window_ != nullptr) frame->close();
    }
    EXPECT_EQ(window_, nullptr);
    if (frame != nullptr) {
        EXPECT_FALSE(frame->isVisible());
    }
    Deliver();
}

INSTANTIATE_TEST_SUITE_P(All, WindowEnds,
                         testing::Values(EventKind::kMouseDown, EventKind::kMouseUp,
                                         EventKind::kClick, EventKind::kKeyDown, EventKind::kResize,
                                         EventKind::kClosing, EventKind::kClosed));

TEST(ManyWindows, ComeAndGo) {
    const auto count = QApplication::allWidgets().size();
    for (int i = 0; i < 100; ++i) {
        RecordingListener listener;
        QtWindow window(listener);
        window.SetClientSize(100, 50);
        window.Show(false);
        QApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Deliver();
    EXPECT_LE(QApplication::allWidgets().size(), count + 5);
}

// --- Modal windows

void Soon(const std::function<void()>& act) { QTimer::singleShot(20, qApp, act); }

TEST_F(Windows, AModalWindowKeepsItsCallerWaiting) {
    RecordingListener other;
    QtWindow behind(other);
    behind.Show(false);
    bool wasModal = false;
    Soon([&] {
        wasModal = Frame().isModal() && Frame().isVisible();
        Frame().close();
    });
    window_->Call(u"Show", {true});
    EXPECT_TRUE(wasModal);
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 1);
    EXPECT_FALSE(Frame().isModal());
}

TEST_F(Windows, HidingAModalWindowEndsTheWait) {
    Soon([&] { window_->Call(u"Hide", {}); });
    window_->Call(u"Show", {true});
    EXPECT_FALSE(Frame().isVisible());
    EXPECT_EQ(listener_.Count(EventKind::kClosing), 0);
}

TEST_F(Windows, AModalWindowMayEndAltogether) {
    Soon([&] { window_.reset(); });
    window_->Call(u"Show", {true});
    EXPECT_EQ(window_, nullptr);
}

TEST_F(Windows, AModalWindowMayChangeItsKind) {
    bool changed = false;
    Soon([&] {
        Set(u"Kind", 3.0);
        changed = Frame().isVisible();
        Soon([&] { Frame().close(); });
    });
    window_->Call(u"Show", {true});
    EXPECT_TRUE(changed);
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 1);
}

TEST_F(Windows, AShownWindowCanBecomeModal) {
    Show();
    Soon([&] { Frame().close(); });
    window_->Call(u"Show", {true});
    EXPECT_EQ(listener_.Count(EventKind::kClosed), 1);
}

}  // namespace
}  // namespace velm
