#pragma once
// A composer over a small sign list, phonetic table and picture sizes, with a browser that
// hands over whatever sign the test queues.
#include "composer/composer.h"
#include "core/sign_lists.h"
#include "fakes.h"

#include <deque>
#include <optional>

namespace nebkaro::testing {

struct QueuedBrowser : WindowHost {
    App& app;
    explicit QueuedBrowser(App& a) : app(a) {}
    // Each entry answers one double-click: a sign, or nullopt for a browser closed unchosen.
    std::deque<std::optional<ChosenSign>> choices;

    bool chooseSignFromBrowser() override {
        if (choices.empty()) {
            ADD_FAILURE() << "the browser was opened unexpectedly";
            return false;
        }
        const auto c = choices.front();
        choices.pop_front();
        if (c) app.chosenSign = *c;
        return c.has_value();
    }
};

// Three monoliterals, then a few signs of several categories.
inline const char* ComposerSignList = "G1,M17,N35,A1,A2,Aa1,D21,G17,G43,M17,N35,X1,Z1\r\n";
inline const char* ComposerPhonetic = "G17,m\r\nN35,n\r\nX1,t\r\nD21,r\r\nAa1,x\r\nM17,i\r\n"
                                      "G43,w\r\nQ3,p\r\nZ1,nfr\r\n";

struct ComposerTest : ::testing::Test {
    TestApp t;
    App& app = t.app;
    QueuedBrowser browser{t.app};
    Composer composer{t.app};

    ComposerTest() {
        parseSignList(app.lists, ComposerSignList);
        parsePhonetic(app.lists, ComposerPhonetic);
        t.pictures.sizes = {{"A1", {300, 600}},  {"A2", {300, 600}},  {"Aa1", {375, 375}},
                            {"D21", {450, 225}}, {"G17", {450, 600}}, {"G43", {375, 540}},
                            {"M17", {225, 600}}, {"N35", {600, 150}}, {"X1", {450, 225}},
                            {"Z1", {150, 450}}};
        app.windows = &browser;
        app.store.newWordPending = true;
        composer.open();
    }

    // Chooses the sign with this code into `slot`, as the browser hands it over from picture 0.
    void choose(int slot, const std::string& code) {
        browser.choices.push_back(
            ChosenSign{code, app.lists.findSign(code), 0,
                       t.pictures.picture(Library::Basic, Direction::Left, code)});
        ASSERT_TRUE(composer.chooseSign(slot));
    }
    void get(const std::string& line) {
        composer.codeLine = line;
        composer.getSigns();
    }
    std::string code(int slot) const { return app.glyphs[slot].code.value_or("<free>"); }
};

} // namespace nebkaro::testing
