// The engine of properties; see properties.h.
#include "objects/properties.h"

#include <algorithm>
#include <string>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kWrongSideError = 99;
constexpr int kNoPropertyError = 102;
constexpr int kNoObjectError = 104;
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kReadOnlyText = u"%1は取得のみ可能な設定項目です。";
constexpr std::u16string_view kWriteOnlyText = u"%1は設定のみ可能な設定項目です。";

// A window's path may go on to a control on it: ウィンドウ2のボタン1の幅. Returns that control.
ObjectPtr ControlOnPath(const Object& window, std::u16string_view path, std::size_t behind,
                        std::u16string& objectName, std::u16string& propertyName) {
    const std::size_t next = FindOutsideBrackets(path, kOf, behind + 1);
    if (next == 0) return nullptr;
    ObjectPtr control =
        FindControl(static_cast<const Window&>(window), path.substr(behind, next - 1 - behind));
    if (control) {
        objectName = path.substr(0, next - 1);
        propertyName = Trim(path.substr(next));
    }
    return control;
}

bool HasWord(const PropertyRow& row, std::u16string_view word) {
    std::u16string_view rest = row.words;
    while (true) {
        const std::size_t comma = rest.find(u',');
        if (rest.substr(0, comma) == word) return true;
        if (comma == rest.npos) return false;
        rest.remove_prefix(comma + 1);
    }
}

// Offers an access to a handler's own rows. Returns whether it was theirs.
bool TryRows(bool isGet, const PropertyHandler& handler, Object& object,
             const PropertyRecord& record, PropertyResult& result) {
    if (handler.path != nullptr && handler.path(isGet, object, record, result)) return true;
    const PropertyRow* row = FindPropertyRow(handler.rows, record.Name);
    if (row == nullptr) return false;
    const auto direction = isGet ? row->get : row->set;
    result.WrongSide = direction == nullptr && row->isOneWay;
    if (direction != nullptr) direction(object, record, result);
    return direction != nullptr || row->isOneWay;
}

// The class's rows, then the common ones. Throws what a row throws.
void CallHandler(bool isGet, Object& object, const PropertyRecord& record, PropertyResult& result) {
    result.NotHandled = true;
    const PropertyHandler* handler = AssignPropertyHandler(object);
    if (handler == nullptr) return;
    if (TryRows(isGet, *handler, object, record, result)) {
        result.NotHandled = false;
    } else if (handler->hasCommonRows) {
        result.NotHandled = !(isGet ? GetCommonProperty(object, record, result)
                                    : SetCommonProperty(object, record, result));
    }
}

// The member that a word names where no table knows it: a script may use the control's own members.
std::u16string MemberOf(const std::u16string& word) {
    std::u16string member = ResourceValue(kDriveWords, word);
    return member.empty() ? word : member;
}

Value ValueOfMember(const MemberValue& member) {
    if (const auto* flag = std::get_if<bool>(&member)) return Value::OfBool(*flag);
    if (const auto* number = std::get_if<double>(&member)) return Value::OfNumber(*number);
    return Value(MemberToText(member));
}

void ReadByName(Object& object, const PropertyRecord& record, PropertyResult& result) {
    result.Text = ValueOfMember(object.Get(MemberOf(record.Name)));
    result.NotHandled = false;
}

void WriteByName(Object& object, const PropertyRecord& record, PropertyResult& result) {
    object.Set(MemberOf(record.Name), record.Text.Text());
    result.NotHandled = false;
}

// The tables, then the member by its name. A failure becomes the pending one.
void Access(bool isGet, Object& object, const PropertyRecord& record, PropertyResult& result) {
    pendingFailure.Clear();
    Attempt([&] { CallHandler(isGet, object, record, result); });
    if (!result.NotHandled || result.WrongSide || pendingFailure.IsSet()) return;
    Attempt(
        [&] { isGet ? ReadByName(object, record, result) : WriteByName(object, record, result); });
    // What the member refuses is another matter than a member that isn't there.
    result.NotHandled = pendingFailure.number == failure::kNoSuchMember;
}

void ReportWrongSide(std::u16string_view text, const PropertyRecord& record) {
    RaiseMessage(text, kWrongSideError, kIconWarning, record.Name, record.Name, -1);
}

void ReportNoProperty(std::u16string_view objectName, const PropertyRecord& record) {
    const std::u16string detail =
        u"「" + std::u16string(objectName) + u"」に「" + record.Name + u"」";
    RaiseError(kNoPropertyError, kIconWarning, detail, record.Name, -1);
}

// The text with its value and number. A list of values stays as it is written: its parts are evaluated
// by those that take them.
void EvaluateRecord(PropertyRecord& record) {
    const bool isList = NextComma(record.Value, 1, true) != 0;
    record.Text = isList ? Value(record.Value.Text()) : EvalWord(record.Value);
    record.Number = static_cast<float>(record.Text.NumberOrZero());
}

void SetSpecialProperty(std::u16string_view path, const std::u16string& objectName,
                        PropertyRecord& record) {
    bool notFound = !IsSpecialObject(objectName);
    if (!notFound) {
        EvaluateRecord(record);
        pendingFailure.Clear();
        Attempt([&] { SpecialObjectProperty(false, objectName, record, notFound); });
        if (pendingFailure.number == failure::kNoSuchMember) ReportNoProperty(objectName, record);
        pendingFailure.Clear();
    }
    if (!notFound) return;
    RaiseError(kNoObjectError, kIconWarning, objectName.empty() ? path : objectName, u"", -1);
}

// In a word's place: what isn't there is no error, since the word may be a plain one.
Value GetSpecialProperty(const std::u16string& objectName, const PropertyRecord& record,
                         bool& notHandled) {
    Value answer;
    notHandled = true;
    if (!IsSpecialObject(objectName)) return answer;
    const bool done = Attempt([&] {
        bool notFound = false;
        answer = SpecialObjectProperty(true, objectName, record, notFound);
        notHandled = notFound;
    });
    if (!done) pendingFailure.Clear();
    return answer;
}

// Reports of failed reads are held back while the script builds its window unseen.
bool IsCurrentWindowVisible() {
    bool isVisible = false;
    const WindowPtr window = objects.CurrentWindow;
    if (!window || !window->HasControl()) return false;
    Attempt([&] { isVisible = window->GetBool(u"Visible"); });
    return isVisible;
}

void ReportFailedRead(Object& object, const std::u16string& objectName,
                      const PropertyRecord& record, int number) {
    if (number == failure::kNoSuchElement) {
        RaiseError(kNoObjectError, kIconWarning, ObjectKindName(object), u"", -1);
    } else if (number == failure::kNoSuchMember) {
        ReportNoProperty(objectName, record);
    }
}

bool KnowsProperty(Object& object, const PropertyRecord& record) {
    const PropertyHandler* handler = AssignPropertyHandler(object);
    if (handler != nullptr) {
        if (FindPropertyRow(handler->rows, record.Name) != nullptr) return true;
        if (handler->hasCommonRows && IsCommonProperty(record.Name)) return true;
    }
    PropertyResult result;
    Access(true, object, record, result);
    const bool knows = pendingFailure.number != failure::kNoSuchMember;
    pendingFailure.Clear();
    return knows;
}

}  // namespace

const PropertyRow* FindPropertyRow(PropertyTable rows, std::u16string_view word) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [word](const PropertyRow& row) { return HasWord(row, word); });
    return found == rows.end() ? nullptr : &*found;
}

const PropertyHandler* AssignPropertyHandler(const Object& object) {
    if (object.Class() == ControlClass::kDialogs) return &kDialogsProperties;
    if (object.Name().empty()) return nullptr;
    switch (object.Class()) {
        case ControlClass::kWindow: return &kWindowProperties;
        case ControlClass::kButton:
        case ControlClass::kPictureButton: return &kButtonProperties;
        case ControlClass::kText:
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText: return &kTextProperties;
        case ControlClass::kPicture: return &kPictureProperties;
        case ControlClass::kList: return &kListProperties;
        case ControlClass::kDropDown:
        case ControlClass::kEditableDropDown: return &kDropDownProperties;
        case ControlClass::kVerticalScrollBar:
        case ControlClass::kHorizontalScrollBar: return &kScrollBarProperties;
        case ControlClass::kCheck:
        case ControlClass::kOption: return &kCheckProperties;
        case ControlClass::kImage:
        case ControlClass::kTurtle: return &kImageProperties;
        case ControlClass::kTimer: return &kTimerProperties;
        case ControlClass::kLabel: return &kLabelProperties;
        case ControlClass::kFrame: return &kFrameProperties;
        case ControlClass::kShape: return &kShapeProperties;
        case ControlClass::kFolderList: return &kFolderListProperties;
        case ControlClass::kDriveList: return &kDriveListProperties;
        case ControlClass::kRichText: return &kRichTextProperties;
        default: return nullptr;
    }
}

ObjectPtr SplitPropertyPath(std::u16string_view path, bool quiet, std::u16string& objectName,
                            std::u16string& propertyName) {
    objectName.clear();
    propertyName.clear();
    const std::size_t of = FindOutsideBrackets(path, kOf);
    if (of == 0) return nullptr;
    objectName = path.substr(0, of - 1);
    propertyName = Trim(path.substr(of));
    if (objectName.empty()) return nullptr;
    ObjectPtr object = FindPluginObject(objectName, quiet);
    if (!object) object = ResolveObject(objectName, true);
    if (!object || !object->IsWindow()) return object;
    const ObjectPtr control = ControlOnPath(*object, path, of, objectName, propertyName);
    return control ? control : object;
}

void SetProperty(std::u16string_view path, const Word& value) {
    PropertyRecord record;
    PropertyResult result;
    std::u16string objectName;
    const ObjectPtr object = SplitPropertyPath(path, false, objectName, record.Name);
    record.Value = value;
    if (!object) {
        SetSpecialProperty(path, objectName, record);
        return;
    }
    EvaluateRecord(record);
    Access(false, *object, record, result);
    const int failed = pendingFailure.number;
    pendingFailure.Clear();
    if (result.WrongSide) {
        ReportWrongSide(kReadOnlyText, record);
    } else if (failed == failure::kNoSuchMember) {
        ReportNoProperty(objectName, record);
    }
}

Value GetProperty(std::u16string_view path, std::u16string_view /*argument*/, bool& notHandled,
                  bool quiet) {
    PropertyRecord record;
    PropertyResult result;
    std::u16string objectName;
    const ObjectPtr object = SplitPropertyPath(path, quiet, objectName, record.Name);
    notHandled = true;
    if (record.Name.empty()) return Value();
    if (!object) return GetSpecialProperty(objectName, record, notHandled);
    Access(true, *object, record, result);
    const int failed = pendingFailure.number;
    pendingFailure.Clear();
    notHandled = result.NotHandled;
    if (result.WrongSide) {
        if (!quiet) ReportWrongSide(kWriteOnlyText, record);
    } else if (failed != 0 && !quiet && IsCurrentWindowVisible()) {
        ReportFailedRead(*object, objectName, record, failed);
    }
    return result.Text;
}

bool IsProperty(std::u16string_view path) {
    PropertyRecord record;
    std::u16string objectName;
    const ObjectPtr object = SplitPropertyPath(path, true, objectName, record.Name);
    if (record.Name.empty()) return false;
    if (!object) return IsSpecialObject(objectName);
    const std::u16string_view name = Trim(objectName);
    const bool isPointing = name.starts_with(u'そ') || name.starts_with(u'こ');
    return !isPointing || KnowsProperty(*object, record);
}

}  // namespace velm
