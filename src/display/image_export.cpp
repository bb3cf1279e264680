#include "display/image_export.h"

#include "core/app.h"

#include <algorithm>
#include <cctype>

namespace nebkaro {

std::string proposedImageName(const std::string& gardiner) {
    std::string name = gardiner;
    std::replace(name.begin(), name.end(), ':', '-');
    std::replace(name.begin(), name.end(), '*', '-');
    return name;
}

std::filesystem::path proposedImagePath(const App& app) {
    return app.userFolder() / "Images" / proposedImageName(app.view.gardiner);
}

ImageFormat imageFormatFor(const std::filesystem::path& file) {
    std::string ext = file.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ext == ".png") return ImageFormat::Png;
    if (ext == ".svg") return ImageFormat::Svg;
    return ImageFormat::Bmp;
}

void saveWordImage(App& app,
                   const std::function<bool(const std::filesystem::path&, ImageFormat)>& write) {
    const auto file = app.dialogs.saveFile(ImageSaveFilter, proposedImagePath(app));
    if (!file || file->empty()) return;
    app.windows->showStatus((write(*file, imageFormatFor(*file))
                                 ? "Picture saved: "
                                 : "The picture could not be saved: ") +
                            file->string());
}

} // namespace nebkaro
