// Lists: items, choices, clicks and scrolling.
#include <QElapsedTimer>
#include <QListWidget>
#include <QScrollBar>

#include "gui/control_tests.h"
#include "platform/qt/qt_removal.h"

namespace velm {
namespace {

class ListTest : public testing::Test, public TestedControl {
  protected:
    ListTest() : TestedControl(kListClass) {
        for (const char16_t* text : {u"い", u"ろ", u"は", u"に"}) Add(text);
    }
    QListWidget& List() { return static_cast<QListWidget&>(Widget()); }
    QPoint PlaceOf(int row) { return List().visualItemRect(List().item(row)).center(); }
    void ClickRow(int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, keys, PlaceOf(row));
    }
    bool IsSelected(int row) {
        return MemberToBool(control->Get(u"Selected", {static_cast<double>(row)}));
    }
};

TEST_F(ListTest, HoldsItems) {
    EXPECT_EQ(Items(), u"い,ろ,は,に");
    Call(u"AddItem", {std::u16string(u"零"), 0.0});
    EXPECT_EQ(Number(u"NewIndex"), 0);
    Call(u"RemoveItem", {2.0});
    EXPECT_EQ(Items(), u"零,い,は,に");
    Set(u"List", std::u16string(u"八"), {2.0});
    Set(u"List", std::u16string(u"末"), {4.0});
    EXPECT_EQ(Items(), u"零,い,八,に,末");
    EXPECT_EQ(Text(u"List", {9.0}), u"");
    Call(u"Clear");
    EXPECT_EQ(Number(u"ListCount"), 0);
    EXPECT_EQ(listener.events.size(), 0U);
}

TEST_F(ListTest, RefusesRowsThatAreNotThere) {
    EXPECT_THROW(Call(u"RemoveItem", {4.0}), Failure);
    EXPECT_THROW(Call(u"AddItem", {std::u16string(u"x"), 6.0}), Failure);
    EXPECT_EQ(FailureOf(u"ListIndex", 4.0), failure::kBadCall);
    EXPECT_EQ(FailureOf(u"ListIndex", -2.0), failure::kBadCall);
    EXPECT_EQ(FailureOf(u"Selected", true, {4.0}), failure::kBadCall);
    EXPECT_EQ(Items(), u"い,ろ,は,に");
}

TEST_F(ListTest, TellsAClickWhenAnotherRowIsChosen) {
    EXPECT_EQ(Number(u"ListIndex"), -1);
    Set(u"ListIndex", 2.0);
    EXPECT_EQ(Text(u"Text"), u"は");
    EXPECT_TRUE(IsSelected(2));
    Set(u"ListIndex", 2.0);
    EXPECT_EQ(Told(EventKind::kClick), 1);
    Set(u"Text", u"ろ");
    EXPECT_EQ(Number(u"ListIndex"), 1);
    Set(u"Selected", true, {3.0});
    EXPECT_EQ(Number(u"ListIndex"), 3);
    EXPECT_FALSE(IsSelected(1));
    Set(u"ListIndex", -1.0);
    EXPECT_EQ(Text(u"Text"), u"");
    EXPECT_EQ(Told(EventKind::kClick), 4);
}

TEST_F(ListTest, ChoosesNoNeighbourOfARemovedRow) {
    Set(u"ListIndex", 1.0);
    Call(u"RemoveItem", {1.0});
    EXPECT_EQ(Number(u"ListIndex"), -1);
    Set(u"ListIndex", 2.0);
    Call(u"RemoveItem", {0.0});
    EXPECT_EQ(Number(u"ListIndex"), 1);
    EXPECT_EQ(Told(EventKind::kClick), 2);
}

TEST_F(ListTest, SortsWithoutRegardToLetterCase) {
    Call(u"Clear");
    Set(u"Sorted", true);
    for (const char16_t* text : {u"pear", u"Apple", u"banana", u"apple", u"Zoo"}) Add(text);
    EXPECT_EQ(Items(), u"Apple,apple,banana,pear,Zoo");
    EXPECT_EQ(Number(u"NewIndex"), 4);
    Call(u"AddItem", {std::u16string(u"zz"), 0.0});
    EXPECT_EQ(Text(u"List", {0.0}), u"zz");
}

TEST_F(ListTest, IsPickedByTheMouse) {
    Show();
    ClickRow(1);
    EXPECT_EQ(Number(u"ListIndex"), 1);
    EXPECT_EQ(Told(EventKind::kMouseDown), 1);
    EXPECT_EQ(Told(EventKind::kMouseUp), 1);
    EXPECT_EQ(Told(EventKind::kClick), 1);
    ClickRow(1);
    EXPECT_EQ(Told(EventKind::kClick), 2);
    QTest::mouseClick(List().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf(3));
    EXPECT_EQ(Number(u"ListIndex"), 1);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(0));
    EXPECT_EQ(Told(EventKind::kDoubleClick), 1);
}

TEST_F(ListTest, IsPickedByTheKeyboard) {
    Show();
    Call(u"SetFocus");
    Set(u"ListIndex", 0.0);
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(Number(u"ListIndex"), 2);
    EXPECT_EQ(Told(EventKind::kClick), 3);
    EXPECT_EQ(Told(EventKind::kKeyDown), 2);
}

TEST_F(ListTest, MayHaveSeveralChoices) {
    Set(u"MultiSelect", 1.0);
    Show();
    ClickRow(0);
    ClickRow(2);
    EXPECT_EQ(Number(u"SelCount"), 2);
    EXPECT_TRUE(IsSelected(0) && IsSelected(2) && !IsSelected(1));
    ClickRow(0);
    EXPECT_EQ(Number(u"SelCount"), 1);
    EXPECT_EQ(Number(u"ListIndex"), 0);
    Set(u"MultiSelect", 2.0);
    ClickRow(0);
    ClickRow(2, Qt::ShiftModifier);
    EXPECT_EQ(Number(u"SelCount"), 3);
    Set(u"Selected", true, {3.0});
    EXPECT_EQ(Number(u"SelCount"), 4);
    EXPECT_EQ(Told(EventKind::kClick), 6);
    Set(u"MultiSelect", 0.0);
    EXPECT_EQ(Number(u"SelCount"), 1);
    EXPECT_EQ(Number(u"ListIndex"), 3);
    EXPECT_EQ(FailureOf(u"MultiSelect", 3.0), failure::kBadCall);
}

TEST_F(ListTest, TellsOfScrollingByTheUserAlone) {
    for (int i = 0; i < 50; ++i) Add(u"行");
    Show();
    Set(u"TopIndex", 20.0);
    EXPECT_EQ(Number(u"TopIndex"), 20);
    Set(u"ListIndex", 53.0);
    Call(u"RemoveItem", {53.0});
    Deliver();
    EXPECT_EQ(Told(EventKind::kScroll), 0);
    List().verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(Told(EventKind::kScroll), 1);
    Set(u"ListIndex", 0.0);
    Set(u"TopIndex", 0.0);
    for (int i = 0; i < 20; ++i) QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_GT(Told(EventKind::kScroll), 10);
}

TEST_F(ListTest, HasRowsAsHighAsTheirFontWithRoomAround) {
    Show();
    EXPECT_EQ(List().visualItemRect(List().item(0)).height(), 14);
    Set(u"FontSize", 18.0);
    Deliver();
    EXPECT_EQ(List().visualItemRect(List().item(0)).height(), 26);
}

TEST_F(ListTest, ShowsAWholeRowInTheHeightOfItsTemplate) {
    control->SetGeometry({10, 10, 65, 18});
    Show();
    EXPECT_EQ(Widget().size(), QSize(65, 18));
    EXPECT_TRUE(List().viewport()->rect().contains(List().visualItemRect(List().item(0))));
}

TEST_F(ListTest, ShowsItsColours) {
    Set(u"BackColor", 255.0);
    Show();
    EXPECT_EQ(Picture().pixel(80, 60), qRgb(255, 0, 0));
}

TEST_F(ListTest, MayEndWithinItsEvents) {
    Show();
    QListWidget& list = List();
    const QPoint place = PlaceOf(1);
    EndAt(*this, EventKind::kClick);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(control, nullptr);
    DeleteWhatIsFree();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.findChildren<QListWidget*>().empty());
}

TEST_F(ListTest, MayEndWhileAKeyScrollsIt) {
    for (int i = 0; i < 50; ++i) Add(u"行");
    Show();
    QListWidget& list = List();
    EndAt(*this, EventKind::kScroll);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(control, nullptr);
    Deliver();
}

TEST(Lists, AThousandOfAnyKindAreMadeWithinASecond) {
    for (const QtControlClass* kind :
         {&kListClass, &kDropDownClass, &kEditableDropDownClass, &kVerticalScrollBarClass,
          &kLabelClass, &kImageClass, &kShapeClass, &kLineClass, &kTimerClass}) {
        RecordingListener listener;
        QWidget window;
        QElapsedTimer time;
        time.start();
        std::vector<std::unique_ptr<QtControl>> controls;
        for (int i = 0; i < 1000; ++i) {
            controls.push_back(std::make_unique<QtControl>(*kind, &window, listener));
            controls.back()->SetGeometry({0, i, 65, 20});
        }
        EXPECT_LT(time.elapsed(), 1000);
    }
}

}  // namespace
}  // namespace velm
