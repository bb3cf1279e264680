#pragma once
// What the word view does with focus, typing, keys and mouse clicks, and its direction
// commands. The window forwards its events here; the state lives in App::view and the store.
#include <optional>
#include <string>

namespace nebkaro {

struct App;
struct WordView;

enum class TextBox { Gardiner, TransLit, Meaning, Comment };
// The five Hide check boxes, in their order on the window; the value indexes WordView::hidden.
enum class HideBox { Enriched = 0, Gardiner = 1, Trans = 2, Meaning = 3, Comment = 4 };

std::string& textOf(WordView& view, TextBox box);

// The user changed a box's text (typing, pasting, the typewriter). The transliteration box
// keeps plain letters: scholarly ones (nṯr) become them (nTr), and the window shows the box's
// text again when it differs from what was typed.
void textBoxChanged(App& app, TextBox box, const std::string& text);
// gardiner, meaning and comment forget earlier changes when they take the focus;
// transliteration becomes the typewriter's target instead and keeps textChanged as it is.
void textBoxGotFocus(App& app, TextBox box);
// Leaving a box after its text changed makes the word count as being edited.
void textBoxLostFocus(App& app, TextBox box);

// Key codes as the window sees them: Shift 16, Ctrl 17, Alt 18, letters their capital's code.
inline constexpr int KeyShift = 16;
inline constexpr int KeyControl = 17;
inline constexpr int KeyAlt = 18;
inline constexpr int KeyG = 71;
inline constexpr int KeyM = 77;
// A key went down anywhere in the window. Ctrl followed by G toggles ChkHideGardiner, Ctrl
// followed by M toggles ChkHideMeaning; only the order of the key codes counts, not whether
// the keys overlap. Returns the box toggled.
std::optional<HideBox> windowKeyDown(WordView& view, int keyCode);

// Mouse buttons as the window reports them.
inline constexpr int RightButton = 2;
// True when a press of this button at (x, y) twips opens the pop-up menu of the display area:
// the right button, inside displayArea or on its edge.
bool opensFieldMenu(const WordView& view, int button, int x, int y);

// Show Borders: inverts the mark; every sign image then has a thin border or none.
void toggleShowBorders(WordView& view);

// The window's width changed: the display area follows it (never narrower than 6960 twips)
// and the word on show stays centred in it.
void resizeWordView(WordView& view, int windowWidth);

} // namespace nebkaro
