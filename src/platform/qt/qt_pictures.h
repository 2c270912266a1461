// Image and icon files as pixels.
#pragma once

#include <cstdint>
#include <string>

#include "data/pixmap.h"

class QImage;

namespace velm {

// The failure of a file that is there and no picture.
inline constexpr int kBadPicture = 481;

// The picture in a file of any format that the toolkit reads, told by its content. A pixel that is less
// than half opaque becomes kTransparentPixel, any other the plain colour. Of an icon file it is the image
// of LoadQtIcon for index 0 and the large size. Throws Failure: 53 no such file, 481 no picture or a
// broken one, 7 too large to hold, and those of NativePath.
Pixmap LoadQtPicture(const std::u16string& path);

// An image of an icon or cursor file, in its own size. Among its images those count whose width is
// nearest to 16 (small) or 32 pixels, of two sizes equally near the larger one, and of those the ones
// with the most colours; index, from 0, tells them apart in the order of the file. A file of another
// picture format has one image, with index 0. Throws Failure as above, 340 for an index that there isn't.
Pixmap LoadQtIcon(const std::u16string& path, std::int32_t index, bool isSmall);

// Pixels to the toolkit's image and back, with the same meaning of kTransparentPixel.
QImage ImageOfPixmap(const Pixmap& pixmap);
Pixmap PixmapOfImage(const QImage& image);

}  // namespace velm
