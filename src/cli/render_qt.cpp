// render: a word's picture as Save Glyph Image makes it, as BMP, PNG or SVG by the extension.
#include "cli/args.h"
#include "cli/console.h"
#include "cli/subcommands.h"
#include "display/image_export.h"
#include "display/render.h"
#include "display/word_picture_qt.h"
#include "editing/word_editing.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

namespace fs = std::filesystem;

namespace nebkaro::cli {

int runRender(const fs::path& home, const std::vector<std::string>& argv) {
    Args a(argv, {"-o"}, {});
    if (a.positional().size() != 2) throw Usage("render takes FILE INDEX -o OUT.bmp|png|svg");
    const std::string out = a.required("-o");
    ConsoleApp c(home);
    installEditing(c.app);
    loadDictionary(c, a.positional()[0], false);
    c.app.store.currentIndex = wordIndex(c, a.positional()[1]);
    renderWord(c.app);
    for (const auto& missing : c.app.view.missingPictures)
        std::cerr << "sign picture missing or unreadable (drawn as an empty square): " << missing
                  << "\n";

    // Image plug-ins (GIF) are found through the application object.
    int argc = 1;
    char name[] = "nebkaro-cli";
    char* args[] = {name, nullptr};
    QCoreApplication qt(argc, args);
    QByteArray bytes;
    switch (imageFormatFor(out)) {
    case ImageFormat::Svg:
        bytes = wordPictureSvg(c.app.view.picture);
        break;
    case ImageFormat::Png:
        bytes = wordPicturePng(c.app.view.picture);
        break;
    case ImageFormat::Bmp: {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        if (!wordPictureImage(c.app.view.picture).save(&buffer, "BMP"))
            throw Failure("the picture could not be made");
        break;
    }
    }
    c.files.write(fs::path(out),
                  std::string(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return 0;
}

} // namespace nebkaro::cli
