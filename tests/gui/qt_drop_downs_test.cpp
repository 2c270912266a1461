// Drop-downs, with and without a line to type in, and the list of drives.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include "gui/control_tests.h"

namespace velm {
namespace {

class DropDown : public TestedControl {
  public:
    explicit DropDown(const QtControlClass& kind) : TestedControl(kind, {10, 10, 65, 20}) {
        for (const char16_t* text : {u"赤", u"緑", u"青"}) Add(text);
    }
    QComboBox& Box() { return static_cast<QComboBox&>(Widget()); }
    void Pick(int row) {
        Box().showPopup();
        Deliver();
        QAbstractItemView& rows = *Box().view();
        const QPoint place = rows.visualRect(Box().model()->index(row, 0)).center();
        QTest::mouseMove(rows.viewport(), place);
        // The toolkit takes a release shortly after the opening for one of the opening click.
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        Deliver();
    }
};

TEST(DropDowns, HoldItemsAndAChoice) {
    DropDown box(kDropDownClass);
    EXPECT_EQ(box.Items(), u"赤,緑,青");
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    EXPECT_EQ(box.Text(u"Text"), u"");
    box.Set(u"ListIndex", 1.0);
    EXPECT_EQ(box.Text(u"Text"), u"緑");
    box.Set(u"ListIndex", 1.0);
    EXPECT_EQ(box.Told(EventKind::kClick), 1);
    box.Set(u"Text", u"青");
    EXPECT_EQ(box.Number(u"ListIndex"), 2);
    EXPECT_NE(box.FailureOf(u"Text", std::u16string(u"黒")), 0);
    EXPECT_EQ(box.Number(u"ListIndex"), 2);
    box.Call(u"RemoveItem", {2.0});
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    box.Set(u"ListIndex", 1.0);
    box.Call(u"RemoveItem", {0.0});
    EXPECT_EQ(box.Number(u"ListIndex"), 0);
    box.Call(u"Clear");
    EXPECT_EQ(box.Number(u"ListCount"), 0);
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    EXPECT_EQ(box.Told(EventKind::kClick), 3);
    EXPECT_EQ(box.Told(EventKind::kChange), 0);
    EXPECT_THROW(box.Call(u"RemoveItem", {0.0}), Failure);
}

TEST(DropDowns, SortTheirItems) {
    DropDown box(kEditableDropDownClass);
    box.Call(u"Clear");
    box.Set(u"Sorted", true);
    for (const char16_t* text : {u"c", u"A", u"b"}) box.Add(text);
    EXPECT_EQ(box.Items(), u"A,b,c");
}

TEST(DropDowns, ArePickedByKeyboardAndMouse) {
    DropDown box(kDropDownClass);
    box.Show();
    box.Call(u"SetFocus");
    QTest::keyClick(&box.Box(), Qt::Key_Down);
    EXPECT_EQ(box.Number(u"ListIndex"), 0);
    EXPECT_EQ(box.Told(EventKind::kClick), 1);
    box.Pick(2);
    EXPECT_EQ(box.Text(u"Text"), u"青");
    EXPECT_EQ(box.Told(EventKind::kClick), 2);
    box.Set(u"Locked", true);
    QTest::keyClick(&box.Box(), Qt::Key_Up);
    EXPECT_EQ(box.Number(u"ListIndex"), 2);
}

TEST(DropDowns, AreExactlyAsHighAsTheyWereMade) {
    for (const QtControlClass* kind :
         {&kDropDownClass, &kEditableDropDownClass, &kDriveListClass}) {
        TestedControl box(*kind, {10, 10, 65, 20});
        box.Show();
        EXPECT_EQ(box.Widget().size(), QSize(65, 20));
        EXPECT_EQ(box.control->Geometry(), (PixelBox{10, 10, 65, 20}));
    }
}

TEST(DropDowns, ShowTheirColours) {
    for (const QtControlClass* kind : {&kDropDownClass, &kEditableDropDownClass}) {
        TestedControl box(*kind, {10, 10, 100, 20});
        box.Show();
        const QRgb before = box.Picture().pixel(40, 20);
        EXPECT_GT(qGreen(before), 200);
        box.Set(u"BackColor", 255.0);
        const QRgb after = box.Picture().pixel(40, 20);
        EXPECT_GT(qRed(after), 200);
        EXPECT_LT(qGreen(after), 60);
    }
}

TEST(EditableDropDowns, TellOfTypedAndOfSetTexts) {
    DropDown box(kEditableDropDownClass);
    EXPECT_EQ(box.Text(u"Text"), u"");
    box.Set(u"Text", u"黒");
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    EXPECT_EQ(box.Told(EventKind::kChange), 1);
    box.Set(u"Text", u"黒");
    EXPECT_EQ(box.Told(EventKind::kChange), 1);
    box.Set(u"Text", u"緑");
    EXPECT_EQ(box.Number(u"ListIndex"), 1);
    box.Show();
    box.Call(u"SetFocus");
    QTest::keyClicks(&box.Box(), QStringLiteral("ab"));
    EXPECT_EQ(box.Text(u"Text"), u"緑ab");
    EXPECT_EQ(box.Told(EventKind::kChange), 4);
    EXPECT_EQ(box.Told(EventKind::kKeyPress), 2);
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    EXPECT_EQ(box.Told(EventKind::kClick), 0);
}

TEST(EditableDropDowns, KeepTheTextWhenItemsComeAndGo) {
    DropDown box(kEditableDropDownClass);
    box.Set(u"Text", u"打つ");
    box.Call(u"RemoveItem", {0.0});
    box.Call(u"RemoveItem", {0.0});
    box.Call(u"RemoveItem", {0.0});
    box.Add(u"新");
    EXPECT_EQ(box.Text(u"Text"), u"打つ");
    EXPECT_EQ(box.Number(u"ListIndex"), -1);
    box.Set(u"ListIndex", 0.0);
    EXPECT_EQ(box.Text(u"Text"), u"新");
    box.Call(u"RemoveItem", {0.0});
    EXPECT_EQ(box.Text(u"Text"), u"新");
    box.Call(u"Clear");
    EXPECT_EQ(box.Text(u"Text"), u"");
    EXPECT_EQ(box.Told(EventKind::kChange), 1);
}

TEST(EditableDropDowns, SelectPartsOfTheText) {
    DropDown box(kEditableDropDownClass);
    box.Set(u"Text", u"あいうえお");
    box.Set(u"SelStart", 1.0);
    box.Set(u"SelLength", 2.0);
    EXPECT_EQ(box.Text(u"SelText"), u"いう");
    box.Set(u"SelText", u"ん");
    EXPECT_EQ(box.Text(u"Text"), u"あんえお");
    EXPECT_EQ(box.Told(EventKind::kChange), 2);
    EXPECT_EQ(box.Number(u"SelStart"), 2);
    EXPECT_EQ(box.Number(u"SelLength"), 0);
}

// The toolkit would pick the item that was typed.
TEST(EditableDropDowns, PickNothingByEnterOrByLosingTheKeyboard) {
    DropDown box(kEditableDropDownClass);
    box.Show();
    box.Call(u"SetFocus");
    box.Set(u"Text", u"x");
    box.Add(u"xy");
    QTest::keyClicks(&box.Box(), QStringLiteral("y"));
    QTest::keyClick(&box.Box(), Qt::Key_Return);
    box.Widget().clearFocus();
    Deliver();
    EXPECT_EQ(box.Told(EventKind::kClick), 0);
}

TEST(EditableDropDowns, PickingIsNoChangeOfTheText) {
    DropDown box(kEditableDropDownClass);
    box.Show();
    box.Pick(1);
    EXPECT_EQ(box.Text(u"Text"), u"緑");
    EXPECT_EQ(box.Told(EventKind::kClick), 1);
    EXPECT_EQ(box.Told(EventKind::kChange), 0);
}

TEST(EditableDropDowns, MayEndWithinTheirEvents) {
    DropDown box(kEditableDropDownClass);
    box.Show();
    box.Call(u"SetFocus");
    QComboBox& widget = box.Box();
    EndAt(box, EventKind::kChange);
    QTest::keyClicks(&widget, QStringLiteral("a"));
    EXPECT_EQ(box.control, nullptr);
    Deliver();
}

TEST(DriveLists, ListTheDrives) {
    TestedControl drives(kDriveListClass);
    EXPECT_EQ(drives.Number(u"ListCount"), 1);
    EXPECT_EQ(drives.Number(u"ListIndex"), 0);
    EXPECT_EQ(drives.Text(u"Drive").substr(0, 2), u"c:");
    EXPECT_EQ(drives.Text(u"List", {0.0}), drives.Text(u"Drive"));
    drives.Set(u"Drive", u"C:\\");
    EXPECT_EQ(drives.Told(EventKind::kClick), 0);
    EXPECT_EQ(drives.FailureOf(u"Drive", std::u16string(u"q:")), failure::kDeviceUnavailable);
    drives.Set(u"ListIndex", -1.0);
    drives.Set(u"Drive", u"c");
    EXPECT_EQ(drives.Told(EventKind::kClick), 2);
    drives.Call(u"Refresh");
    EXPECT_EQ(drives.Number(u"ListIndex"), 0);
}

}  // namespace
}  // namespace velm
