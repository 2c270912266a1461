// See recorded_classes.h.
#include "unit/objects/recorded_classes.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "data/width.h"

namespace velm {

namespace {

using Defaults = std::map<std::u16string, MemberValue>;

constexpr double kButtonFace = -2147483633;
constexpr double kWindowText = -2147483630;

const std::u16string kNoText;

const Defaults kVisible = {{u"VISIBLE", false}};
const Defaults kLook = {
    {u"ENABLED", true},        {u"FORECOLOR", kWindowText}, {u"BACKCOLOR", kButtonFace},
    {u"TOOLTIPTEXT", kNoText}, {u"MOUSEPOINTER", 0.0},      {u"MOUSEICON", kNoText},
    {u"OLEDROPMODE", 1.0},
};
const Defaults kFont = {
    {u"FONTNAME", std::u16string(u"ＭＳ Ｐゴシック")},
    {u"FONTSIZE", 9.0},
    {u"FONTCHARSET", 128.0},
    {u"FONTBOLD", false},
    {u"FONTITALIC", false},
    {u"FONTUNDERLINE", false},
    {u"FONTSTRIKETHRU", false},
};
// What is no control has another name for one of them.
const Defaults kOutsideFont = {
    {u"FONTNAME", std::u16string(u"ＭＳ Ｐゴシック")},
    {u"FONTSIZE", 9.0},
    {u"FONTBOLD", false},
    {u"FONTITALIC", false},
    {u"FONTUNDERLINE", false},
    {u"FONTSTRIKETHROUGH", false},
};
const Defaults kFocusable = {{u"TABINDEX", 0.0}, {u"TABSTOP", true}, {u"HWND", 65536.0}};
const Defaults kCaption = {{u"CAPTION", kNoText}};
const Defaults kButton = {{u"DEFAULT", false}, {u"CANCEL", false}};
const Defaults kPictureButton = {{u"MASKCOLOR", 12632256.0}, {u"USEMASKCOLOR", false}};
const Defaults kTextMembers = {
    {u"TEXT", kNoText},    {u"PASSWORDCHAR", kNoText}, {u"SELTEXT", kNoText}, {u"SELSTART", 0.0},
    {u"SELLENGTH", 0.0},   {u"MAXLENGTH", 0.0},        {u"LOCKED", false},    {u"IMEMODE", 0.0},
    {u"BORDERSTYLE", 1.0}, {u"ALIGNMENT", 0.0},
};
const Defaults kRichText = {
    {u"TEXTRTF", kNoText},      {u"WORDWRAP", true},       {u"SELBOLD", false},
    {u"SELITALIC", false},      {u"SELUNDERLINE", false},  {u"SELSTRIKETHRU", false},
    {u"SELCOLOR", 0.0},         {u"SELFONTNAME", kNoText}, {u"SELFONTSIZE", 9.0},
    {u"SELALIGNMENT", 0.0},     {u"SELINDENT", 0.0},       {u"SELRIGHTINDENT", 0.0},
    {u"SELHANGINGINDENT", 0.0}, {u"SELPROTECTED", false},  {u"OLEDRAGMODE", 0.0},
    {u"AUTOURL", false},        {u"VERTICAL", false},
};
const Defaults kItems = {{u"TEXT", kNoText}, {u"LISTCOUNT", 0.0}, {u"LISTINDEX", -1.0},
                         {u"SORTED", false}, {u"LIST", kNoText},  {u"SELECTED", false},
                         {u"ITEMDATA", 0.0}, {u"TOPINDEX", 0.0},  {u"MULTISELECT", 0.0}};
const Defaults kDropDown = {{u"STYLE", 2.0},     {u"SELTEXT", kNoText}, {u"SELSTART", 0.0},
                            {u"SELLENGTH", 0.0}, {u"LOCKED", false},    {u"IMEMODE", 0.0}};
const Defaults kScroll = {{u"LARGECHANGE", 1.0},
                          {u"SMALLCHANGE", 1.0},
                          {u"MIN", 0.0},
                          {u"MAX", 32767.0},
                          {u"VALUE", 0.0}};
const Defaults kValue = {{u"VALUE", 0.0}, {u"ALIGNMENT", 0.0}};
const Defaults kLabel = {{u"BACKSTYLE", 1.0},    {u"AUTOSIZE", false}, {u"ALIGNMENT", 0.0},
                         {u"USEMNEMONIC", true}, {u"WORDWRAP", false}, {u"BORDERSTYLE", 0.0}};
const Defaults kShape = {
    {u"SHAPE", 0.0},       {u"BORDERWIDTH", 1.0},       {u"BORDERCOLOR", kWindowText},
    {u"BORDERSTYLE", 1.0}, {u"FILLCOLOR", 0.0},         {u"FILLSTYLE", 1.0},
    {u"BACKSTYLE", 0.0},   {u"BACKCOLOR", kButtonFace}, {u"DRAWMODE", 13.0}};
const Defaults kLine = {{u"BORDERWIDTH", 1.0},
                        {u"BORDERCOLOR", kWindowText},
                        {u"BORDERSTYLE", 1.0},
                        {u"DRAWMODE", 13.0}};
const Defaults kTimer = {{u"ENABLED", true}, {u"INTERVAL", 0.0}};
const Defaults kFolder = {{u"PATH", std::u16string(u"C:\\")}};
const Defaults kDrive = {{u"DRIVE", std::u16string(u"c:")}};
const Defaults kImage = {{u"STRETCH", false}, {u"BORDERSTYLE", 0.0}};
const Defaults kPicture = {{u"AUTOSIZE", false}, {u"BORDERSTYLE", 1.0}, {u"ALIGN", 0.0}};
const Defaults kWindow = {
    {u"WINDOWSTATE", 0.0}, {u"KIND", 0.0},           {u"MOVEABLE", true},  {u"ALPHA", 255.0},
    {u"TOPMOST", false},   {u"SHOWINTASKBAR", true}, {u"MINBUTTON", true}, {u"MAXBUTTON", true},
    {u"CONTROLBOX", true}, {u"CLIPCONTROLS", true},  {u"HWND", 4096.0},
};
const Defaults kDialogs = {
    {u"FILENAME", kNoText}, {u"FILETITLE", kNoText},  {u"FILTER", kNoText},
    {u"FILTERINDEX", 0.0},  {u"FLAGS", 0.0},          {u"DIALOGTITLE", kNoText},
    {u"INITDIR", kNoText},  {u"DEFAULTEXT", kNoText}, {u"COLOR", 0.0},
    {u"CANCEL", false},
};
const Defaults kPrinter = {
    {u"DEVICENAME", std::u16string(u"プリンタ")},
    {u"SCALEMODE", 3.0},
    {u"CURRENTX", 0.0},
    {u"CURRENTY", 0.0},
    {u"FORECOLOR", 0.0},
    {u"ORIENTATION", 1.0},
    {u"COPIES", 1.0},
};
const Defaults kDriveObject = {
    {u"TOTALSIZE", 1000.0},
    {u"FREESPACE", 500.0},
    {u"VOLUMENAME", kNoText},
    {u"DRIVETYPE", 2.0},
    {u"ISREADY", true},
    {u"FILESYSTEM", std::u16string(u"ext4")},
    {u"DRIVELETTER", std::u16string(u"C")},
};

struct ClassRow {
    ControlClass which;
    std::u16string_view name;
    std::vector<const Defaults*> members;
    std::u16string_view calls;  // joined by blanks
};

constexpr std::u16string_view kPlainCalls = u"ZORDER REFRESH";
constexpr std::u16string_view kFocusCalls = u"ZORDER REFRESH SETFOCUS";
constexpr std::u16string_view kListCalls = u"ZORDER REFRESH SETFOCUS ADDITEM REMOVEITEM CLEAR";

const std::vector<ClassRow>& Rows() {
    static const std::vector<ClassRow> rows = {
        {ControlClass::kWindow,
         u"Window",
         {&kVisible, &kLook, &kFont, &kCaption, &kWindow},
         u"ZORDER REFRESH SETFOCUS SHOW HIDE PRINTFORM STARTMOVE"},
        {ControlClass::kButton,
         u"Button",
         {&kVisible, &kLook, &kFont, &kFocusable, &kCaption, &kButton},
         kFocusCalls},
        {ControlClass::kPictureButton,
         u"PictureButton",
         {&kVisible, &kLook, &kFont, &kFocusable, &kCaption, &kButton, &kPictureButton},
         kFocusCalls},
        {ControlClass::kText,
         u"Text",
         {&kVisible, &kLook, &kFont, &kFocusable, &kTextMembers},
         u"ZORDER REFRESH SETFOCUS UNDO"},
        {ControlClass::kMultiLineText,
         u"MultiLineText",
         {&kVisible, &kLook, &kFont, &kFocusable, &kTextMembers},
         u"ZORDER REFRESH SETFOCUS UNDO"},
        {ControlClass::kWrappedText,
         u"WrappedText",
         {&kVisible, &kLook, &kFont, &kFocusable, &kTextMembers},
         u"ZORDER REFRESH SETFOCUS UNDO"},
        {ControlClass::kPicture,
         u"Picture",
         {&kVisible, &kLook, &kFocusable, &kPicture},
         kFocusCalls},
        {ControlClass::kImage, u"Image", {&kVisible, &kLook, &kImage}, kPlainCalls},
        {ControlClass::kLabel,
         u"Label",
         {&kVisible, &kLook, &kFont, &kCaption, &kLabel},
         kPlainCalls},
        {ControlClass::kList,
         u"List",
         {&kVisible, &kLook, &kFont, &kFocusable, &kItems},
         kListCalls},
        {ControlClass::kDropDown,
         u"DropDown",
         {&kVisible, &kLook, &kFont, &kFocusable, &kItems, &kDropDown},
         kListCalls},
        {ControlClass::kEditableDropDown,
         u"EditableDropDown",
         {&kVisible, &kLook, &kFont, &kFocusable, &kItems, &kDropDown},
         kListCalls},
        {ControlClass::kVerticalScrollBar,
         u"VerticalScrollBar",
         {&kVisible, &kLook, &kFocusable, &kScroll},
         kFocusCalls},
        {ControlClass::kHorizontalScrollBar,
         u"HorizontalScrollBar",
         {&kVisible, &kLook, &kFocusable, &kScroll},
         kFocusCalls},
        {ControlClass::kCheck,
         u"Check",
         {&kVisible, &kLook, &kFont, &kFocusable, &kCaption, &kValue},
         kFocusCalls},
        {ControlClass::kOption,
         u"Option",
         {&kVisible, &kLook, &kFont, &kFocusable, &kCaption, &kValue},
         kFocusCalls},
        {ControlClass::kFrame,
         u"Frame",
         {&kVisible, &kLook, &kFont, &kFocusable, &kCaption},
         kPlainCalls},
        {ControlClass::kShape, u"Shape", {&kVisible, &kShape}, kPlainCalls},
        {ControlClass::kLine, u"Line", {&kVisible, &kLine}, kPlainCalls},
        {ControlClass::kFolderList,
         u"FolderList",
         {&kVisible, &kLook, &kFont, &kFocusable, &kItems, &kFolder},
         kFocusCalls},
        {ControlClass::kDriveList,
         u"DriveList",
         {&kVisible, &kLook, &kFont, &kFocusable, &kItems, &kDrive},
         kFocusCalls},
        {ControlClass::kTimer, u"Timer", {&kTimer}, u""},
        {ControlClass::kTurtle, u"Turtle", {&kVisible}, kPlainCalls},
        {ControlClass::kRichText,
         u"RichText",
         {&kVisible, &kLook, &kFont, &kFocusable, &kTextMembers, &kRichText},
         u"ZORDER REFRESH SETFOCUS UNDO SELPRINT FIND"},
        {ControlClass::kDialogs,
         u"Dialogs",
         {&kDialogs, &kOutsideFont},
         u"SHOWOPEN SHOWSAVE SHOWDIR SHOWCOLOR SHOWFONT SHOWPRINTER SHOWPRINTPAGE"},
        {ControlClass::kPrinter, u"Printer", {&kPrinter, &kOutsideFont}, u"PRINT NEWPAGE ENDDOC"},
        {ControlClass::kDrive, u"Drive", {&kDriveObject}, u""},
    };
    return rows;
}

const ClassRow& RowOf(ControlClass which) {
    const std::vector<ClassRow>& rows = Rows();
    return *std::find_if(rows.begin(), rows.end(),
                         [which](const ClassRow& row) { return row.which == which; });
}

}  // namespace

std::u16string_view RecordedClassName(ControlClass which) { return RowOf(which).name; }

std::map<std::u16string, MemberValue> RecordedDefaults(ControlClass which) {
    std::map<std::u16string, MemberValue> all;
    for (const Defaults* part : RowOf(which).members) all.insert(part->begin(), part->end());
    return all;
}

bool IsRecordedCall(ControlClass which, std::u16string_view member) {
    const std::u16string calls = u" " + std::u16string(RowOf(which).calls) + u" ";
    return calls.find(u" " + std::u16string(member) + u" ") != std::u16string::npos;
}

}  // namespace velm
