#pragma once
// Undo and redo of the changes to the dictionary in memory.
//
// A step is kept as a splice: at row `at`, the rows the store holds now are replaced by the
// rows the step holds. Taking a step back or forth swaps the two, so a step only ever holds
// one version of the rows it changed, and a step over the whole dictionary costs at most one
// copy of it. The rows a change touched are found by comparing: before a change the rows it
// may touch are copied, and after it the rows that came out equal at both ends are dropped.
#include "core/dictionary_store.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace nebkaro {

class UndoHistory {
public:
    // Steps kept; the oldest goes first.
    static constexpr std::size_t Capacity = 100;

    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    // The step Undo (Redo) would take back (do again), "" when there is none.
    std::string undoName() const { return done_.empty() ? "" : done_.back().name; }
    std::string redoName() const { return undone_.empty() ? "" : undone_.back().name; }
    std::size_t undoCount() const { return done_.size(); }
    std::size_t redoCount() const { return undone_.size(); }
    // Words held by all the steps together: what the history costs.
    std::size_t rowsHeld() const;

    // Takes the last step back (does the last step taken back again): the store's words,
    // header and word on show are as they were, and it is marked changed exactly when it
    // differs from the file last saved or opened. False when there is no such step.
    bool undo(DictionaryStore& store);
    bool redo(DictionaryStore& store);

    // A dictionary was opened or created: no steps, and what the store holds is the file.
    void clear();
    // The store was written to its file.
    void markSaved() { saved_ = position(); }
    // Which state the store is in; a new step or a step taken changes it.
    std::uint64_t state() const { return position(); }

    // The command-line tool changes a dictionary once and has nothing to take back.
    bool enabled = true;

private:
    friend class UndoStep;
    struct Step {
        std::string name;
        int at = 0;
        // The rows that replace the store's rows [at, at + held) when the step is swapped.
        std::vector<WordRecord> rows;
        int held = 0;
        std::int32_t currentIndex = 0;
        DictionaryHeader header{};
        bool hasHeader = false;
        std::uint64_t id = 0;
    };
    // The state the store is in: the id of the last step done, 0 for the state last opened.
    std::uint64_t position() const { return done_.empty() ? base_ : done_.back().id; }
    static void swapIn(DictionaryStore& store, Step& step);
    void push(Step step);

    std::deque<Step> done_;
    std::vector<Step> undone_;
    std::uint64_t nextId_ = 1;
    // The state of the oldest step's "before" (it moves on when old steps are dropped), and
    // the state the saved file holds.
    std::uint64_t base_ = 0;
    std::uint64_t saved_ = 0;

    // The step being recorded: the outermost UndoStep owns it, inner ones widen it.
    int depth_ = 0;
    Step open_;
    int openFrom_ = 0, openTo_ = 0, openTotal_ = 0;
};

// Records one step around a change: rows [from, to) of the store are the ones the change may
// write or move (to = -1: up to the last word); rows after `to` may only move as a block when
// words are added or removed just before them. Nested steps are part of the outermost one,
// which names the step. The step is recorded when it ends, even through an exception (a sort
// that failed part-way can be taken back), and only when the store changed.
class UndoStep {
public:
    UndoStep(UndoHistory& history, const DictionaryStore& store, std::string name, int from,
             int to = -1);
    ~UndoStep();
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;
    // The name once the change knows it better ("Store word 12" after the row was chosen).
    void rename(std::string name);

private:
    UndoHistory& history_;
    const DictionaryStore& store_;
    bool outer_ = false;
};

} // namespace nebkaro
