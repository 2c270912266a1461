// The turtle seen from above, as polygons that are turned about the middle of the picture.
#include "graphics/turtle_pictures.h"

#include <cmath>
#include <map>
#include <span>
#include <vector>

#include "data/failure.h"
#include "graphics/raster.h"

namespace velm {

namespace {

constexpr std::int32_t kSize = 32;           // pixels
constexpr std::int32_t kMiddle = kSize * 8;  // in sixteenths of a pixel, as all that follows

constexpr std::uint32_t kSkin = 0x50B070;
constexpr std::uint32_t kRim = 0x205030;
constexpr std::uint32_t kShell = 0x309048;
constexpr std::uint32_t kPlate = 0x48B868;
constexpr std::uint32_t kEye = 0x000000;

// Corners from the middle of the picture, x to the right and y down, the turtle facing up.
constexpr PixelPoint kHead[] = {{-28, -130}, {-46, -180}, {-40, -212}, {-20, -232},
                                {20, -232},  {40, -212},  {46, -180},  {28, -130}};
constexpr PixelPoint kTail[] = {{-30, 150}, {-6, 234}, {6, 234}, {30, 150}};
constexpr PixelPoint kFrontLeg[] = {{70, -120}, {150, -178}, {192, -160}, {184, -124}, {110, -60}};
constexpr PixelPoint kHindLeg[] = {{80, 100}, {110, 64}, {176, 128}, {172, 164}, {132, 172}};
constexpr PixelPoint kOuterShell[] = {{-48, -150}, {48, -150}, {106, -104}, {136, -40},
                                      {136, 40},   {106, 112}, {48, 164},   {-48, 164},
                                      {-106, 112}, {-136, 40}, {-136, -40}, {-106, -104}};
constexpr PixelPoint kInnerShell[] = {{-40, -130}, {40, -130}, {90, -90},   {116, -34},
                                      {116, 34},   {90, 98},   {40, 144},   {-40, 144},
                                      {-90, 98},   {-116, 34}, {-116, -34}, {-90, -90}};
constexpr PixelPoint kMiddlePlate[] = {{-40, -56}, {40, -56}, {68, 6},
                                       {40, 68},   {-40, 68}, {-68, 6}};
constexpr PixelPoint kEyeSpot[] = {{10, -216}, {34, -216}, {34, -192}, {10, -192}};

struct Piece {
    std::span<const PixelPoint> corners;
    std::uint32_t color;
    bool hasTwin;  // the same on the other side
};

constexpr Piece kPieces[] = {
    {kFrontLeg, kSkin, true},     {kHindLeg, kSkin, true},       {kTail, kSkin, false},
    {kHead, kSkin, false},        {kEyeSpot, kEye, true},        {kOuterShell, kRim, false},
    {kInnerShell, kShell, false}, {kMiddlePlate, kPlate, false},
};

// A turn in whole steps of 1/4096, so that the last digit of a machine's sine doesn't matter.
class Rotation {
  public:
    explicit Rotation(std::int32_t degrees)
        : sine_(Part(std::sin(degrees * kRadian))), cosine_(Part(std::cos(degrees * kRadian))) {}

    // Clockwise about the middle of the picture.
    PixelPoint Of(PixelPoint point) const {
        return {kMiddle + Whole(point.x * cosine_ - point.y * sine_),
                kMiddle + Whole(point.x * sine_ + point.y * cosine_)};
    }

  private:
    static constexpr double kRadian = 3.14159265358979323846 / 180;
    static constexpr std::int32_t kParts = 4096;

    static std::int32_t Part(double share) {
        return static_cast<std::int32_t>(std::lround(share * kParts));
    }
    // The nearest whole, a half going away from the middle.
    static std::int32_t Whole(std::int32_t parts) {
        return (parts + (parts < 0 ? -kParts / 2 : kParts / 2)) / kParts;
    }

    std::int32_t sine_;
    std::int32_t cosine_;
};

void DrawPiece(PixelArea& area, const Piece& piece, const Rotation& rotation, bool isTwin) {
    std::vector<PixelPoint> corners;
    for (const PixelPoint& corner : piece.corners) {
        corners.push_back(rotation.Of({isTwin ? -corner.x : corner.x, corner.y}));
    }
    FillPolygon(area, corners, piece.color);
}

Pixmap DrawTurtle(std::int32_t degrees) {
    Pixmap picture(kSize, kSize, kTransparentPixel);
    PixelArea area(picture, kSize, kSize);
    const Rotation rotation(degrees);
    for (const Piece& piece : kPieces) {
        DrawPiece(area, piece, rotation, false);
        if (piece.hasTwin) DrawPiece(area, piece, rotation, true);
    }
    return picture;
}

// Degrees clockwise from up.
std::int32_t AngleOf(std::int32_t identifier) {
    constexpr std::int32_t kStep = 15;
    constexpr std::int32_t kCircle = 360;
    // Kept: one picture more than the steps ask for.
    constexpr std::int32_t kExtraAngle = 70;
    if (identifier == kTurtleFacingUp) return 0;
    const std::int32_t angle = identifier - kTurtleFirstAngle;
    const bool isStep = angle > 0 && angle < kCircle && angle % kStep == 0;
    if (!isStep && angle != kExtraAngle) throw Failure(failure::kNoSuchElement);
    return angle;
}

}  // namespace

const Pixmap& TurtlePicture(std::int32_t identifier) {
    static std::map<std::int32_t, Pixmap> pictures;
    const auto known = pictures.find(identifier);
    if (known != pictures.end()) return known->second;
    return pictures.emplace(identifier, DrawTurtle(AngleOf(identifier))).first->second;
}

}  // namespace velm
