// The fonts in force.
#include "platform/text_raster.h"

namespace velm {

namespace {

TextRasterizer* rasterizerInForce = nullptr;

}  // namespace

TextRasterizer* TheTextRasterizer() { return rasterizerInForce; }
void SetTextRasterizer(TextRasterizer* rasterizer) { rasterizerInForce = rasterizer; }

}  // namespace velm
