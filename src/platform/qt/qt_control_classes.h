// The classes of controls, one file a subject.
#pragma once

#include "platform/qt/qt_control.h"

namespace velm {

extern const QtControlClass kButtonClass;
extern const QtControlClass kPictureButtonClass;
extern const QtControlClass kCheckClass;
extern const QtControlClass kOptionClass;
extern const QtControlClass kTextClass;
extern const QtControlClass kMultiLineTextClass;
extern const QtControlClass kWrappedTextClass;
extern const QtControlClass kRichTextClass;
extern const QtControlClass kListClass;
extern const QtControlClass kDropDownClass;
extern const QtControlClass kEditableDropDownClass;
extern const QtControlClass kFolderListClass;
extern const QtControlClass kDriveListClass;
extern const QtControlClass kVerticalScrollBarClass;
extern const QtControlClass kHorizontalScrollBarClass;
extern const QtControlClass kLabelClass;
extern const QtControlClass kFrameClass;
extern const QtControlClass kImageClass;
extern const QtControlClass kShapeClass;
extern const QtControlClass kLineClass;
extern const QtControlClass kTimerClass;

}  // namespace velm
