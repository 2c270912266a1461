// Properties of the lists of folders and of drives.
#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr PropertyRow kFolderListRows[] = {
    GetOnlyRow(u"個数", GetNumberMember<u"ListCount">),
    NumberRow<u"ListIndex">(u"番号"),
    TextRow<u"Path">(u"フォルダ"),
};

constexpr PropertyRow kDriveListRows[] = {
    GetOnlyRow(u"個数", GetNumberMember<u"ListCount">),
    NumberRow<u"ListIndex">(u"番号"),
    TextRow<u"Drive">(u"ドライブ"),
};

}  // namespace

const PropertyHandler kFolderListProperties = {kFolderListRows};
const PropertyHandler kDriveListProperties = {kDriveListRows};

}  // namespace velm
