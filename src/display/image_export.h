#pragma once
// The picture of the word on show leaving the program: the file name proposed for it and the
// formats it can be saved in.
#include <filesystem>
#include <functional>
#include <string>

namespace nebkaro {

struct App;

// The save dialog's filter: bitmap first (the program's own format), then PNG and SVG.
inline constexpr const char* ImageSaveFilter =
    "Pictures (*.bmp)|*.bmp|PNG Pictures (*.png)|*.png|SVG Drawings (*.svg)|*.svg";

// The Gardiner notation with every ":" and "*" turned into "-", which a file name can hold.
std::string proposedImageName(const std::string& gardiner);
// <home>/Images/<proposed name>: the save dialog's start folder and name.
std::filesystem::path proposedImagePath(const App& app);

enum class ImageFormat { Bmp, Png, Svg };
// By the chosen file's extension, whatever its case; anything else is a bitmap.
ImageFormat imageFormatFor(const std::filesystem::path& file);

// Save Image: asks where, writes the picture with `write` (false when the file cannot be
// written) and says in the status bar how it went. A picture that cannot be written is not an
// error of the dictionary, so nothing else happens.
void saveWordImage(App& app,
                   const std::function<bool(const std::filesystem::path&, ImageFormat)>& write);

} // namespace nebkaro
