// Pictures of objects: showing them, and loading them from files.
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr int kNotFoundError = 201;
constexpr int kNotAFileName = 204;
constexpr int kBadPngError = 502;
constexpr int kUnknownError = 999;
constexpr std::u16string_view kSmall = u"小";
constexpr std::u16string_view kLarge = u"大";
constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1A\n";

Pixmap UpperLeft(const Pixmap& image, std::int32_t width, std::int32_t height) {
    Pixmap part(width, height, kTransparentPixel);
    for (std::int32_t y = 0; y < height; ++y) std::copy_n(image.Row(y), width, part.Row(y));
    return part;
}

void SetSize(Object& object, std::int32_t width, std::int32_t height) {
    PixelBox box = object.Geometry();
    box.width = width;
    box.height = height;
    object.SetGeometry(box);
}

// The size of an object for which its inside has a size.
void SetInnerSize(Object& object, std::int32_t width, std::int32_t height) {
    const PixelBox box = object.Geometry();
    if (const ObjectCanvas* canvas = object.Canvas()) {
        width += std::max(box.width - canvas->Width(), 0);
        height += std::max(box.height - canvas->Height(), 0);
    }
    SetSize(object, width, height);
}

bool TakesSizeOfPicture(Object& object) {
    if (object.Class() == ControlClass::kImage) return !object.GetBool(u"Stretch");
    return object.Class() == ControlClass::kPicture && object.GetBool(u"AutoSize");
}

void TakePictureOf(Object& target, Object& source) {
    ShowPicture(target, PictureOf(source), source.pictureFile);
}

std::string HeadOf(std::u16string_view file) {
    return ReadFileBytes(file).substr(0, kPngSignature.size());
}

// What is loaded, and whether anything is: a file that only calls itself png is passed over quietly.
struct Loaded {
    bool isThere = false;
    Pixmap picture;
};

Loaded LoadPng(const std::u16string& file) {
    if (HeadOf(file) != kPngSignature) return {};
    return {true, TheToolkit().LoadPicture(file)};
}

Loaded LoadIconOf(const PictureWord& word) {
    return {true, TheToolkit().LoadIcon(word.file, word.index, word.size == kSmall)};
}

bool IsProgram(std::u16string_view extension) {
    return extension == u"exe" || extension == u"dll" || extension == u"cpl";
}

Loaded LoadFile(const PictureWord& word, std::u16string_view extension) {
    if (extension == u"png") return LoadPng(word.file);
    if (IsProgram(extension)) return LoadIconOf(word);
    const bool hasSize = word.size == kSmall || word.size == kLarge;
    if (extension == u"ico" && hasSize) return LoadIconOf(word);
    return {true, TheToolkit().LoadPicture(word.file)};
}

bool IsMissing(int number) {
    return number == failure::kFileNotFound || number == failure::kPathNotFound ||
           number == failure::kBadFileName;
}

void ReportFailure(const PictureWord& word, std::u16string_view extension) {
    const std::u16string text = pendingFailure.description;
    const int number = pendingFailure.number;
    pendingFailure.Clear();
    // Without a toolkit nobody has looked for the file yet.
    const bool isUnread = number == failure::kNoSuchMember && !PathExists(word.file);
    if (IsMissing(number) || isUnread || IsProgram(extension)) {
        RaiseError(kNotFoundError, kIconStop, word.file, u"", -1);
    } else if (extension == u"png") {
        const std::u16string detail = FormatNumber(number) + u":" + text;
        RaiseError(kBadPngError, kIconStop, detail, u"", -1);
    } else {
        RaiseError(kUnknownError, kIconWarning, text, u"", -1);
    }
}

// A file that is there is no object, even if its name begins like one.
ObjectPtr ObjectOfWord(const std::u16string& word) {
    return IsPlainFile(word) ? nullptr : ResolveObject(word, true);
}

// A png gives its size to whatever isn't a window. Kept: the size with the border.
void ShowLoaded(Object& target, Loaded loaded, const PictureWord& word, bool isPng) {
    const std::int32_t width = loaded.picture.width;
    const std::int32_t height = loaded.picture.height;
    const bool isStretched = target.Class() == ControlClass::kImage && target.GetBool(u"Stretch");
    if (isPng && !target.IsWindow() && !isStretched) SetSize(target, width, height);
    ShowPicture(target, std::move(loaded.picture), word.file);
}

}  // namespace

PictureWord::PictureWord(const PropertyRecord& record) {
    // A name may hold commas.
    if (IsPlainFile(record.Text.Text())) {
        file = record.Text.Text();
        return;
    }
    const std::vector<Value> parts = SplitValues(record);
    file = parts[0].Text();
    if (parts.size() > 1) index = ToInt16(parts[1].NumberOrZero());
    if (parts.size() > 2) size = parts[2].Text();
}

PictureWord::PictureWord(std::u16string_view text) {
    PropertyRecord record;
    record.Text = Value(text);
    *this = PictureWord(record);
}

Pixmap ImageOf(Object& object) {
    const ObjectCanvas* canvas = object.Canvas();
    if (canvas == nullptr) return object.Picture();
    return UpperLeft(canvas->Image(), canvas->Width(), canvas->Height());
}

const Pixmap& PictureOf(Object& object) {
    const ObjectCanvas* canvas = object.Canvas();
    return canvas != nullptr ? canvas->Picture() : object.Picture();
}

void ShowPicture(Object& object, Pixmap picture, std::u16string_view file) {
    const bool fits = !picture.pixels.empty() && TakesSizeOfPicture(object);
    const std::int32_t width = picture.width;
    const std::int32_t height = picture.height;
    if (ObjectCanvas* canvas = object.Canvas()) {
        canvas->SetPicture(std::move(picture));
    } else {
        object.SetPicture(picture);
    }
    object.pictureFile = file;
    if (fits) SetInnerSize(object, width, height);
}

bool LoadImage(Object& target, const PictureWord& word) {
    if (word.file.empty()) {
        ShowPicture(target, Pixmap(), u"");
        return true;
    }
    if (word.file == u"0") {
        RaiseError(kNotAFileName, kIconWarning, word.file, u"", -1);
        return false;
    }
    if (const ObjectPtr source = ObjectOfWord(word.file)) {
        TakePictureOf(target, *source);
        return true;
    }
    const std::u16string extension = ExtensionOf(word.file);
    Loaded loaded;
    const bool isDone = Attempt([&] { loaded = LoadFile(word, extension); });
    if (!isDone) ReportFailure(word, extension);
    if (!isDone || !loaded.isThere) return false;
    ShowLoaded(target, std::move(loaded), word, extension == u"png");
    return true;
}

bool LoadImage(Object& target, std::u16string_view text) {
    return LoadImage(target, PictureWord(text));
}

}  // namespace velm
