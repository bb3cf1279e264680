#pragma once
// Layout is measured in twips, as the dictionary files store it; the screen in logical pixels
// at 96 dots per inch, 15 twips each.
namespace nebkaro {

inline constexpr int TwipsPerPixel = 15;

// A length in twips as logical pixels, unrounded.
constexpr double toPixels(double twips) {
    return twips / TwipsPerPixel;
}

} // namespace nebkaro
