// Properties: from ボタン1の内容 to the member of a control. A property is a row: word, what to do on a
// read, what on a write. The rows of the object's class come first, then those that all controls share,
// then the member of that very name. One engine walks them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/word.h"
#include "data/value.h"
#include "objects/object.h"

namespace velm {

// One access.
struct PropertyRecord {
    std::u16string Name;  // the property word: what stands behind the last の
    Word Value;           // as written
    velm::Value Text;     // evaluated; as written when it holds a comma outside brackets
    float Number = 0;     // Text as a number, 0 if it is none
};

struct PropertyResult {
    velm::Value Text;         // the answer of a read
    bool WrongSide = false;   // the property exists only for the other direction
    bool NotHandled = false;  // nothing knew the word
};

// A row of a table. A direction without a function falls through to the next table, unless the row says
// that the word exists for the other side alone. A function may throw Failure: of a write that is
// dropped, of a read the engine decides.
struct PropertyRow {
    std::u16string_view words;  // aliases, joined by ","
    void (*get)(Object& object, const PropertyRecord& record, PropertyResult& result) = nullptr;
    void (*set)(Object& object, const PropertyRecord& record, PropertyResult& result) = nullptr;
    bool isOneWay = false;
};
using PropertyTable = std::span<const PropertyRow>;

// The row of a word; nullptr when the table has none.
const PropertyRow* FindPropertyRow(PropertyTable rows, std::u16string_view word);

// What serves an object: its own rows, whether the common rows come behind them, and, for paths such as
// 3番目の幅, a handler that is asked before all rows; it answers whether it took the word.
struct PropertyHandler {
    PropertyTable rows;
    bool hasCommonRows = true;
    bool (*path)(bool isGet, Object& object, const PropertyRecord& record,
                 PropertyResult& result) = nullptr;
};

// The handler of an object's class; nullptr for one without (a line, the printer, a drive).
const PropertyHandler* AssignPropertyHandler(const Object& object);

void SetProperty(std::u16string_view path, const Word& value);
// notHandled: no table and no member knew the word, or there is no such object. quiet: a failed read
// reports nothing.
Value GetProperty(std::u16string_view path, std::u16string_view argument, bool& notHandled,
                  bool quiet);
// Whether a path names a property that can be set: of an object that is there, or of a word that stands
// for one. Only behind その, この and other words that begin so the object must know the property, since
// variables begin so as well. Nothing is reported or made.
bool IsProperty(std::u16string_view path);
// The object of a path, with its name and the property word. Makes nothing. quiet: reports nothing;
// otherwise そ and こ names without an object are reported (90).
ObjectPtr SplitPropertyPath(std::u16string_view path, bool quiet, std::u16string& objectName,
                            std::u16string& propertyName);

// The common rows: whether a word is one of theirs in either direction, and access by them, which tells
// whether the word was theirs.
bool IsCommonProperty(std::u16string_view word);
bool SetCommonProperty(Object& object, const PropertyRecord& record, PropertyResult& result);
bool GetCommonProperty(Object& object, const PropertyRecord& record, PropertyResult& result);

// Whether an object word is one of those that are no objects: メニュー, タスクトレイ, 呼び出し元.
bool IsSpecialObject(std::u16string_view objectName);
// Their properties. Throws Failure(438) for a word that they don't know.
Value SpecialObjectProperty(bool isGet, std::u16string_view objectName,
                            const PropertyRecord& record, bool& notFound);

// Value forms.
// The position of the text among the names, else the text's number.
std::int32_t EnumIndexOf(const Value& text, std::span<const std::u16string_view> names);
// The same for a record's value. A name that is a function's, too (右, ひらがな), counts as it is written.
std::int32_t EnumIndexOf(const PropertyRecord& record, std::span<const std::u16string_view> names);
// The name at the position, else the number.
Value EnumNameOf(std::int32_t number, std::span<const std::u16string_view> names);
// Cuts a list such as "a,b[,c,d]" at the commas outside brackets. Each part is evaluated when the value as
// written has such a comma, otherwise the evaluated text is cut.
std::vector<Value> SplitValues(const PropertyRecord& record);
// The same as numbers; a part that is missing or no number leaves its target. Returns how many parts.
std::size_t SplitCoordinates(const PropertyRecord& record, std::span<double> outputs);

// The rows of each class, one file a subject.
extern const PropertyHandler kWindowProperties;
extern const PropertyHandler kPictureProperties;
extern const PropertyHandler kTextProperties;
extern const PropertyHandler kRichTextProperties;
extern const PropertyHandler kButtonProperties;
extern const PropertyHandler kListProperties;
extern const PropertyHandler kDropDownProperties;
extern const PropertyHandler kScrollBarProperties;
extern const PropertyHandler kCheckProperties;
extern const PropertyHandler kImageProperties;
extern const PropertyHandler kLabelProperties;
extern const PropertyHandler kTimerProperties;
extern const PropertyHandler kShapeProperties;
extern const PropertyHandler kFrameProperties;
extern const PropertyHandler kFolderListProperties;
extern const PropertyHandler kDriveListProperties;
extern const PropertyHandler kDialogsProperties;

// タスクトレイ; throws Failure(438) for another word.
Value TrayProperty(bool isGet, const PropertyRecord& record);

}  // namespace velm
