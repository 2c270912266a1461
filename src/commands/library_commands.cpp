// Calls into dynamic libraries. See library_commands.h.
#include "commands/library_commands.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/variable_words.h"
#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/encoded_file.h"
#include "core/eval.h"
#include "core/names.h"
#include "core/prepare.h"
#include "core/procedures.h"
#include "core/protection.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/structures.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/dynamic_library.h"

namespace velm {

namespace {

constexpr int kMissingParts = 35;
constexpr int kLibraryNotFound = 601;
constexpr int kFunctionNotFound = 602;
constexpr int kCallFailed = 604;
constexpr int kNameTaken = 605;
constexpr int kNoStructure = 90;
constexpr std::u16string_view kNoStructureText =
    u"この辞書は、構造体として利用できません。\\n「辞書初期化」命令を使って辞書を初期化してください"
    u"。";
constexpr std::u16string_view kOf = u"の";
constexpr std::size_t kWordBytes = 8;

// How a parameter is passed.
enum class Passing : std::uint8_t { kReference, kStructure, kBytes, kInteger, kText };

struct Parameter {
    Word word;
    std::u16string value;
    Passing passing = Passing::kText;
    std::int64_t number = 0;     // of an integer or a reference, as the machine has it
    std::byte* block = nullptr;  // the memory of everything else
    std::size_t size = 0;        // of what is read back from it
};

Passing PassingOf(const Word& word, const Value& value) {
    const std::u16string first = ToHalfWidth(word.Text().substr(0, 1));
    if (first == u"*") return Passing::kReference;
    if (first == u"@") return Passing::kStructure;
    if (first == u"#") return Passing::kBytes;
    return value.IsNumeric() ? Passing::kInteger : Passing::kText;
}

// The parameters with the values of their variables; nothing, reported, when one can't be read.
std::optional<std::vector<Parameter>> ReadParameters(std::u16string_view text) {
    std::vector<Parameter> parameters;
    if (Trim(text).empty()) return parameters;
    const std::u16string normalised = NormaliseCommas(text);
    for (const std::u16string_view piece : CutAtCommas(normalised)) {
        Parameter parameter;
        parameter.word = Word(Trim(piece));
        bool found = false;
        const Value value = ReadVariableWord(parameter.word, found);
        if (!found) {
            RaiseError(kMissingParts, kIconWarning, parameter.word, u"", -1);
            return std::nullopt;
        }
        parameter.value = value.Text();
        parameter.passing = PassingOf(parameter.word, value);
        if (parameter.passing == Passing::kStructure && !IsStructure(parameter.value)) {
            RaiseMessage(kNoStructureText, kNoStructure, kIconInformation, u"", u"", -1);
            return std::nullopt;
        }
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

std::int64_t NumberToPass(std::u16string_view text) {
    if (Trim(text).empty()) return 0;
    const std::optional<double> number = ParseNumber(text);
    if (!number) throw Failure(failure::kTypeMismatch);
    return ToMachineWord(ToInt32(*number));
}

void PutIntoMemory(Parameter& parameter, std::string_view bytes) {
    parameter.size = bytes.size();
    parameter.block = LibraryMemory(bytes.size() + 1);
    std::memcpy(parameter.block, bytes.data(), bytes.size());
}

// A reference is as wide as the machine's word, for many libraries write an address there.
void PutReference(Parameter& parameter) {
    parameter.number = NumberToPass(parameter.value);
    parameter.block = LibraryMemory(kWordBytes);
    std::memcpy(parameter.block, &parameter.number, kWordBytes);
}

void Convert(Parameter& parameter) {
    switch (parameter.passing) {
        case Passing::kReference: PutReference(parameter); break;
        case Passing::kStructure: PutIntoMemory(parameter, BuildBlock(parameter.value)); break;
        case Passing::kBytes: {
            std::string bytes;
            AppendBytesOfList(parameter.value, bytes);
            PutIntoMemory(parameter, bytes);
            break;
        }
        case Passing::kInteger: parameter.number = NumberToPass(parameter.value); break;
        case Passing::kText: {
            const std::u16string_view text = StripPair(parameter.value, u"「", u"」");
            PutIntoMemory(parameter, EncodeCodePage932(BeforeNul(text)));
            break;
        }
    }
}

std::int64_t MachineWord(const Parameter& parameter) {
    if (parameter.block == nullptr) return parameter.number;
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(parameter.block));
}

// What stands in a reference after the call. A library that knows numbers of 32 bits leaves the upper
// half as it was; then the lower one is the number.
std::int32_t ReadReference(const Parameter& parameter) {
    std::int64_t after = 0;
    std::memcpy(&after, parameter.block, kWordBytes);
    const auto low = static_cast<std::int32_t>(after);
    const bool wasNumber = parameter.number == static_cast<std::int32_t>(parameter.number);
    const bool sameHalf = after >> 32 == parameter.number >> 32;
    return wasNumber && sameHalf ? low : ToScriptNumber(after);
}

std::string_view MemoryOf(const Parameter& parameter) {
    return {reinterpret_cast<const char*>(parameter.block), parameter.size};
}

// The text that a library left: up to the first NUL, as far as there is memory for it.
std::u16string ReadText(const Parameter& parameter) {
    const char* text = reinterpret_cast<const char*>(parameter.block);
    const std::size_t room = parameter.size + kRoomBehindBlock;
    return DecodeCodePage932({text, strnlen(text, room)});
}

Value ValueAfter(const Parameter& parameter) {
    switch (parameter.passing) {
        case Passing::kReference: return Value::OfInteger(ReadReference(parameter));
        case Passing::kStructure: return Value(ReadBlock(parameter.value, MemoryOf(parameter)));
        case Passing::kBytes: return Value(ByteList(MemoryOf(parameter)));
        case Passing::kInteger: return Value::OfInteger(ToInt32(*ParseNumber(parameter.value)));
        case Passing::kText: return Value(ReadText(parameter));
    }
    return Value();
}

std::int32_t CallWithParameters(void* function, std::vector<Parameter>& parameters) {
    BeginLibraryCall();
    std::vector<std::int64_t> words;
    for (Parameter& parameter : parameters) {
        Convert(parameter);
        words.push_back(MachineWord(parameter));
    }
    const std::int32_t result = ToScriptNumber(CallForeign(function, words));
    for (std::size_t i = parameters.size(); i-- > 0;) {
        SetVariable(parameters[i].word.Text(), ValueAfter(parameters[i]));
    }
    return result;
}

// The number that the function returns; 0 when it could not be called.
std::int32_t CallExternal(void* function, std::u16string_view text) {
    std::optional<std::vector<Parameter>> parameters = ReadParameters(text);
    if (!parameters) return 0;
    std::int32_t result = 0;
    if (Attempt([&] { result = CallWithParameters(function, *parameters); })) return result;
    RaiseError(kCallFailed, kIconInformation, u"", u"", -1);
    return 0;
}

// The parts of LIBRARYのFUNCTION.
std::pair<std::u16string, std::u16string> CutFunctionName(std::u16string_view word) {
    const std::size_t of = word.find(kOf);
    const std::u16string_view library = Trim(word.substr(0, of));
    const std::u16string_view function =
        of == kNotFound ? std::u16string_view() : Trim(word.substr(of + kOf.size()));
    return {std::u16string(StripPair(library, u"「", u"」")),
            std::u16string(StripPair(function, u"「", u"」"))};
}

template <class Element>
void Append(std::vector<Element>& to, const std::vector<Element>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

// Adds lines to the main script as if it had held them at its end; there they outlive a text that only
// runs once.
void AppendSource(std::u16string_view source) {
    Program& program = *Programs.front();
    Program added;
    added.Statements = PrepareProgram(source);
    ScanBlocks(added);
    // The procedures are entered from a program in which the new lines stand where they will.
    Program placed;
    placed.Statements.resize(program.Statements.size(), ParseStatement(u""));
    Append(placed.Statements, added.Statements);
    RegisterProcedures(placed, 0);
    program.Depth.resize(program.Statements.size());
    Append(program.Statements, added.Statements);
    Append(program.Depth, added.Depth);
    NewVersion(program);
}

void DeclareFunction(const Statement& statement, std::u16string_view name) {
    const std::size_t open = name.find(u'（');
    if (Commands.Find(Trim(name.substr(0, open))) != nullptr) {
        RaiseError(kNameTaken, kIconWarning, u"", u"", -1);
        return;
    }
    const std::size_t close = name.rfind(u'）');
    const bool listed = open != kNotFound && close != kNotFound && close > open;
    std::u16string source = u"終了\r\n手順は\u3000!";
    source.append(name).append(kCrLf).append(statement.WoArg.Text()).append(u"で、");
    if (listed) source.append(name.substr(open + 1, close - open - 1));
    source.append(u"を呼び出せ\r\n終わり");
    AppendSource(source);
}

void DeclareKeyword(std::u16string_view command, std::u16string_view name) {
    const xxCmdData* existing = Commands.Find(name);
    if (existing != nullptr && existing->FuncPnt.command != nullptr) {
        RaiseError(kNameTaken, kIconWarning, u"", u"", -1);
        return;
    }
    for (const xxCmdData* entry : Commands.InOrder()) {
        if (!Contains(command, entry->Name)) continue;
        if (entry->FuncPnt.command == nullptr) return;
        xxCmdData second = *entry;
        second.used = false;
        Symbol* key = Intern(name);
        Commands.Remove(key);
        Commands.Add(key, std::move(second));
        return;
    }
}

// The text of the dictionary that a word names: empty, and then a variable of that name too, when there
// is none yet.
std::u16string DictionaryOf(const Word& name) {
    std::u16string text = EvalWord(name).Text();
    if (text != name.Text()) return text;
    SetVariable(name.Text(), Value());
    return {};
}

}  // namespace

void CmdDeclare(Statement& statement, Context& /*context*/) {
    Word name = GetWord(statement, u"として");
    if (name.IsEmpty()) name = GetWord(statement, u"と");
    if (name.IsEmpty()) {
        RaiseError(kMissingParts, kIconWarning, u"", u"", -1);
    } else if (Contains(statement.WoArg.Text(), kOf)) {
        DeclareFunction(statement, name);
    } else {
        DeclareKeyword(statement.WoArg, name);
    }
}

void CmdCallLibrary(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kExternalCalls)) return;
    statement.DeArg = GetWord(statement, u"で");
    const auto [libraryName, functionName] = CutFunctionName(statement.DeArg);
    const std::optional<DynamicLibrary> library = DynamicLibrary::Open(libraryName);
    if (!library) {
        RaiseError(kLibraryNotFound, kIconWarning, libraryName, u"", -1);
        return;
    }
    void* function = library->Find(functionName);
    if (function == nullptr) {
        RaiseError(kFunctionNotFound, kIconWarning, functionName, u"", -1);
        return;
    }
    run.Response = Value::OfInteger(CallExternal(function, statement.WoArg));
}

void CmdDefineStructure(Statement& statement, Context& /*context*/) {
    const auto [definitions, unused] = GetWords(statement, u"で", u"として");
    const std::u16string types = EvalWord(definitions).Text();
    const Word name = statement.WoArg;
    SetVariable(name.Text(), Value(DefineStructure(DictionaryOf(name), types)));
}

void CmdStoreEntry(Statement& statement, Context& /*context*/) {
    const std::u16string& place = statement.HeArg.Text();
    if (place.empty()) {
        RaiseError(kMissingParts, kIconWarning, u"", u"", -1);
        return;
    }
    const std::size_t of = FindOutsideBrackets(place, kOf);
    const Word name(of == 0 ? std::u16string_view()
                            : Trim(std::u16string_view(place).substr(0, of - 1)));
    const Word keyWord(Trim(std::u16string_view(place).substr(of)));
    const Word valueWord = statement.WoArg;
    const std::u16string dictionary = DictionaryOf(name);
    const std::u16string key = EvalWord(keyWord).Text();
    const std::u16string value = EvalWord(valueWord).Text();
    SetVariable(name.Text(), Value(SetDictValue(dictionary, key, value)));
}

}  // namespace velm
