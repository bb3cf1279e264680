#pragma once
// The glyph composer: the state of the Compose window and its commands. The window only
// shows what this holds and forwards the user's actions; everything the composer does to the
// shared state (the GlyphTable, the results for the main window, the library) happens here.
// Positions and sizes are twips.
#include "core/app.h"
#include "core/word_view.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace nebkaro {

// The two looks of an image that holds no sign: the empty slot waiting for a choice has the
// button-face colour, an image out of use the application-workspace colour.
enum class SlotBackground { ButtonFace, Workspace };

// One of the 21 sign images of the canvas.
struct CanvasImage {
    bool hasPicture = false;
    SignPicture picture;
    // Left and Top as the composer computed them; a row centred on the frame can stand on
    // half twips, which the window rounds to whole pixels when it draws.
    double left = 0;
    double top = 0;
    int width = 612;
    int height = 612;
    bool visible = false;
    SlotBackground background = SlotBackground::Workspace;
};

// Where an image stood when the window was loaded: as whole numbers (used to put an emptied
// image back) and Left and Top as they were.
struct HomePlace {
    int left = 0, top = 0, width = 0, height = 0;
    double leftValue = 0, topValue = 0;
};

// The window's design geometry, shared by the window and the command-line tool so that both
// place signs alike. Resize keeps the width rules below.
struct ComposeGeometry {
    static constexpr int MinWidth = 6960;
    static constexpr int DesignHeight = 7860;
    static constexpr int EmptySize = 612;
    static constexpr int FrameHeight = 5000;

    int windowWidth = MinWidth;
    int windowHeight = DesignHeight;
    Rect canvasFrame{250, 1260, MinWidth - 500, FrameHeight};
    int codeLineWidth = MinWidth - 1800;
    int getButtonLeft = MinWidth - 900;

    // The design home place of image slot (0..20): seven to a row in the lower part of the
    // frame, below the line on which Get lays out its signs.
    static Rect home(int slot);
};

class Composer {
public:
    static constexpr int Slots = GlyphTable::Slots;
    static constexpr int DeleteKeyCode = 46;

    explicit Composer(App& app);

    // Load of the window: results emptied, images at home, then the new-word case (table
    // emptied) or the edit-word case (the main window's signs taken over at the same places
    // relative to the frame).
    void open();

    // Get: the line in txtMdC becomes signs in slots 0 upwards, laid out in one row centred
    // on the frame, in the reading order of the direction: left to right for signs facing
    // left, right to left for signs facing right. Later slots are left as they were. A line naming
    // more than 20 signs is told off with a message; the signs after the 20th are not placed.
    void getSigns();
    // Arrange: the same reading of the line, laid out as hieroglyphic groups: "-" and blanks
    // separate groups, ":" stacks, "*" sets signs side by side inside a group. Signs keep
    // their natural size (the stored word has no room for another); each group is centred
    // on the frame's middle line and the groups stand in a row in the writing direction.
    void arrange();
    // A sign already looked up, with the separator ('-', ':' or '*') that joins it to the one
    // before.
    struct NamedSign {
        std::string code;
        int entry = 0;
        char joiner = '-';
    };
    // Arrange for signs looked up by the caller (the importer reads variant codes such as
    // N35a as codes, which a typed line would take for phonetic values): slots 0 upwards,
    // laid out as groups. At most 20 signs are placed.
    void arrangeSigns(const std::vector<NamedSign>& signs);

    // Double-click on image i: the browser is shown and waited for; its choice fills slot i.
    // False when the browser was closed without a choice (nothing changes).
    bool chooseSign(int i);
    // Image i was dropped at (left, top).
    void moveSign(int i, double left, double top);
    // A key pressed on image i; only the Delete key does something.
    void keyPressed(int i, int keyCode);
    // Removes sign i; the later signs keep their places. firstFreeSlot becomes the empty slot
    // after the remaining signs and Gardinerlbl lists them.
    void deleteSign(int i);
    // "Delete Last": refused while firstFreeSlot is 1 (and below, where there is nothing before).
    void deleteLast();
    // A click on an image makes the typewriter type into txtMdC.
    void imageClicked(int i);

    // OK: true when the window is to be hidden. Any sign in use makes a word (one sign is
    // enough); with none OK is Cancel.
    bool accept();
    void cancel();

    void basicOptionClicked();
    void extendedOptionClicked();
    void basicMenuChosen();
    void extendedMenuChosen();
    void activate();
    // The window was resized to width x height; the size it must have is left in geometry.
    void resize(int width, int height);

    // The canvas' text boxes and labels.
    std::string codeLine;
    std::string debugText;
    std::string gardinerLabel = "Gardiner: ";
    std::string richGardinerLabel = "RichGardiner";
    // Pictures that could not be read, for the window's status line.
    std::string status;

    std::array<CanvasImage, Slots> images{};
    std::array<HomePlace, Slots> homePlaces{};
    int firstFreeSlot = 0;

    bool basicChosen = true;
    bool basicChecked = true;
    bool extendedChecked = false;

    ComposeGeometry geometry;

private:
    struct Placed {
        int slot;
        char joiner; // strongest separator since the previous placed sign: '-', ':' or '*'
    };
    // Reads txtMdC into slots 0 upwards; the signs placed, with what joins each to the one
    // before. Returns false for an empty line (nothing at all happens then).
    bool readLine(std::vector<Placed>& placed);
    void placeSign(int slot, const std::string& code, int entry);
    void layOutRow();
    void layOutGroups(const std::vector<Placed>& placed);
    void loadPicture(int i, const SignPicture& picture);
    void clearPicture(int i);
    void resetImage(int i, SlotBackground bg, bool visible);
    void switchLibrary(Library library);
    void readingOrderSort();
    // Gardinerlbl := the codes of the slots in use.
    void showSigns();
    void swapSlots(int a, int b);
    SignPicture pictureFor(const std::string& code) const;

    App& app_;
};

// Get followed by OK in a freshly loaded composer for a new word, with no moves: what the
// command-line tool runs. The sign list and phonetic table in app.lists must be those of the
// library asked for. Messages go through app.dialogs. Returns whether the composition was
// accepted (app.layoutText and app.composedGardiner then hold the strings).
bool composeLine(App& app, const std::string& line, Library library, Direction direction);

} // namespace nebkaro
