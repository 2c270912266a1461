// Property rows that windows and picture controls share: how their drawing surface behaves.
#pragma once

#include "objects/properties.h"

namespace velm {

// 描画モード as it is read, and 座標.
void GetDrawMode(Object& object, const PropertyRecord& record, PropertyResult& result);
void GetScaleWord(Object& object, const PropertyRecord& record, PropertyResult& result);
void SetScaleWord(Object& object, const PropertyRecord& record, PropertyResult& result);

}  // namespace velm
