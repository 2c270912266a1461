// See qt_control.h.
#include "platform/qt/qt_control.h"

#include <utility>

#include "data/failure.h"
#include "platform/qt/qt_control_classes.h"

namespace velm {

namespace {

std::vector<QtMemberTable> TablesOf(const QtControlClass& kind) {
    std::vector<QtMemberTable> tables{kind.members};
    if (!kind.moreMembers.empty()) tables.push_back(kind.moreMembers);
    if (kind.hasCommonMembers) tables.push_back(CommonMembers());
    return tables;
}

const QtControlClass& ClassOf(ControlClass which) {
    switch (which) {
        case ControlClass::kButton: return kButtonClass;
        case ControlClass::kPictureButton: return kPictureButtonClass;
        case ControlClass::kCheck: return kCheckClass;
        case ControlClass::kOption: return kOptionClass;
        case ControlClass::kText: return kTextClass;
        case ControlClass::kMultiLineText: return kMultiLineTextClass;
        case ControlClass::kWrappedText: return kWrappedTextClass;
        case ControlClass::kRichText: return kRichTextClass;
        case ControlClass::kList: return kListClass;
        case ControlClass::kDropDown: return kDropDownClass;
        case ControlClass::kEditableDropDown: return kEditableDropDownClass;
        case ControlClass::kFolderList: return kFolderListClass;
        case ControlClass::kDriveList: return kDriveListClass;
        case ControlClass::kVerticalScrollBar: return kVerticalScrollBarClass;
        case ControlClass::kHorizontalScrollBar: return kHorizontalScrollBarClass;
        case ControlClass::kLabel: return kLabelClass;
        case ControlClass::kFrame: return kFrameClass;
        case ControlClass::kImage: return kImageClass;
        case ControlClass::kShape: return kShapeClass;
        case ControlClass::kLine: return kLineClass;
        case ControlClass::kTimer: return kTimerClass;
        default: throw Failure(failure::kBadCall);
    }
}

}  // namespace

QtControl::QtControl(const QtControlClass& kind, QWidget* parent, ControlListener& listener)
    : QtControl(kind, Make(kind, parent), listener) {}

QtControl::Parts QtControl::Make(const QtControlClass& kind, QWidget* parent) {
    QWidget* widget = kind.make(parent);
    return {widget, kind.inner != nullptr ? kind.inner(*widget) : nullptr};
}

QtControl::QtControl(const QtControlClass& kind, Parts parts, ControlListener& listener)
    : kind_(kind), surface_(parts.widget, listener, TablesOf(kind), parts.inner) {
    surface_.control = this;
    surface_.foreColor = kind.foreColor;
    surface_.backColor = kind.backColor;
    if (kind.start != nullptr) kind.start(surface_);
}

MemberValue QtControl::Get(std::u16string_view member, const MemberArguments& arguments) {
    return surface_.Get(member, arguments);
}

void QtControl::Set(std::u16string_view member, const MemberValue& value,
                    const MemberArguments& arguments) {
    surface_.Set(member, value, arguments);
}

MemberValue QtControl::Call(std::u16string_view member, const MemberArguments& arguments) {
    return surface_.Call(member, arguments);
}

PixelBox QtControl::Geometry() const {
    const bool isOwn = kind_.geometry != nullptr && surface_.Widget() != nullptr;
    return isOwn ? kind_.geometry(surface_) : surface_.Geometry();
}

void QtControl::SetGeometry(const PixelBox& box) {
    if (kind_.setGeometry == nullptr) {
        surface_.SetGeometry(box);
    } else if (surface_.Widget() != nullptr) {
        kind_.setGeometry(surface_, box);
    }
}

void QtControl::SetContainer(ToolkitControl& container) {
    if (surface_.Widget() == nullptr) throw Failure(failure::kNothingThere);
    MoveIntoContainer(*surface_.Widget(), container);
}

void QtControl::SetPicture(const Pixmap& picture) {
    if (kind_.setPicture == nullptr) throw Failure(failure::kNoSuchMember);
    if (surface_.Widget() == nullptr) throw Failure(failure::kNothingThere);
    kind_.setPicture(surface_, picture);
}

void QtControl::SetCanvas(CanvasImage* canvas) {
    if (canvas != nullptr) throw Failure(failure::kNoSuchMember);
}

QWidget* QtControl::ChildArea() { return kind_.isContainer ? surface_.Widget() : nullptr; }

void MoveIntoContainer(QWidget& widget, ToolkitControl& container) {
    auto* target = dynamic_cast<QtContainer*>(&container);
    QWidget* area = target != nullptr ? target->ChildArea() : nullptr;
    const bool isItself = area != nullptr && (area == &widget || widget.isAncestorOf(area));
    if (area == nullptr || isItself) throw Failure(failure::kBadCall);
    if (widget.parentWidget() == area) return;
    const QPoint place = widget.pos();
    const bool isShown = !widget.isHidden();
    widget.setParent(area);
    widget.move(place);
    widget.setVisible(isShown);
}

std::unique_ptr<ToolkitControl> MakeQtControl(ControlClass which, QWidget* parentOfControls,
                                              ControlListener& listener) {
    return std::make_unique<QtControl>(ClassOf(which), parentOfControls, listener);
}

}  // namespace velm
