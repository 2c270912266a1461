// A plain button can't show a picture or a background colour: it is replaced by one that can.
#pragma once

#include "objects/object.h"

namespace velm {

// The button in its picture form: itself when it is one already, else a new element that has taken its
// place and is ThatObject. Throws Failure(340) for an unloaded button.
ObjectPtr ToPictureButton(const ObjectPtr& button);
// The way back; the tag of the new element is empty.
ObjectPtr ToPlainButton(const ObjectPtr& button);

}  // namespace velm
