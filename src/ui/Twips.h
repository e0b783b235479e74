#pragma once

namespace ui {

/// Every length in this layer is in twips, as the settings keep them: 15 to a pixel at 96 dots per
/// inch, whatever the screen's scale. The toolkit's own pixels appear nowhere else.
inline constexpr int twipsPerPixel = 15;

constexpr int toPixels(int twips) {
    return (twips + twipsPerPixel / 2) / twipsPerPixel;
}
constexpr int toTwips(int pixels) {
    return pixels * twipsPerPixel;
}

} // namespace ui
