#pragma once
// A dictionary of a few words on show in a main window whose composer is scripted.
#include "core/app.h"
#include "display/render.h"
#include "editing/word_editing.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace nebkaro::testing {

// Stands in for the composer: accepts with two signs, A1 and G17 side by side, or cancels.
struct ScriptedComposer : WindowHost {
    App* app = nullptr;
    bool accept = true;
    int runs = 0;
    bool openedForNew = false, openedForEdit = false;

    void runComposer() override {
        ++runs;
        openedForNew = app->store.newWordPending;
        openedForEdit = app->store.editPending;
        if (!accept) return;
        app->glyphs.clear();
        app->glyphs[0].code = "A1";
        app->glyphs[1].code = "G17";
        app->glyphs[1].x = 300;
        app->layoutText = "A1(0,0) - G17(300,0) ";
        app->composedGardiner = "A1-G17";
        app->store.composeAccepted = true;
    }
};

// The last word, the word on show and whether the dictionary changed.
using Where = std::tuple<int, int, bool>;

struct EditingTest : ::testing::Test {
    TestApp t;
    App& app = t.app;
    ScriptedComposer composer;
    TempDir dir;

    void SetUp() override {
        t.pictures.sizes = {{"A1", {300, 540}}, {"G17", {420, 600}}, {"N35", {600, 90}}};
        composer.app = &app;
        app.windows = &composer;
        installEditing(app);
        app.store.dictionaryPath = (dir.path() / "Words.nkd").string();
    }

    // Words 0..n-1: "w0", "w1", ... in the transliteration, unchanged, word 0 on show.
    void words(int n) {
        for (int i = 0; i < n; ++i)
            app.store.setRow(i, {"L", "B", "N35(0,0) ", "N35", "w" + std::to_string(i),
                                 "meaning " + std::to_string(i), ""});
        app.store.lastIndex = n - 1;
        app.store.isChanged = false;
        show(0);
    }

    // The word at index on show, as every move leaves it.
    void show(int index) {
        app.store.currentIndex = index;
        renderWord(app);
    }

    Where where() const {
        return {app.store.lastIndex, app.store.currentIndex, app.store.isChanged};
    }
    std::string translit(int row) const { return app.store.field(row, FieldTranslit); }
};

} // namespace nebkaro::testing
