#include "core/undo_history.h"

#include <algorithm>
#include <utility>

namespace nebkaro {

namespace {

int rowCount(const DictionaryStore& store) {
    return std::max(store.lastIndex + 1, 0);
}

} // namespace

void UndoHistory::swapIn(DictionaryStore& store, Step& step) {
    const int total = rowCount(store);
    const int held = step.held;
    const int incoming = static_cast<int>(step.rows.size());
    std::vector<WordRecord> out;
    out.reserve(static_cast<std::size_t>(held));
    for (int j = 0; j < held; ++j) out.push_back(store.row(step.at + j));
    // The rows after the splice move as a block to make room or close the gap.
    const int shift = incoming - held;
    if (shift > 0)
        for (int i = total - 1; i >= step.at + held; --i) store.swapRows(i, i + shift);
    else if (shift < 0)
        for (int i = step.at + held; i < total; ++i) store.swapRows(i, i + shift);
    for (int j = 0; j < incoming; ++j)
        store.setRow(step.at + j, std::move(step.rows[static_cast<std::size_t>(j)]));
    step.rows = std::move(out);
    step.held = incoming;
    store.lastIndex = total + shift - 1;
    std::swap(store.currentIndex, step.currentIndex);
    std::swap(store.header, step.header);
    std::swap(store.hasHeader, step.hasHeader);
}

bool UndoHistory::undo(DictionaryStore& store) {
    if (done_.empty() || depth_ > 0) return false;
    Step step = std::move(done_.back());
    done_.pop_back();
    swapIn(store, step);
    undone_.push_back(std::move(step));
    store.isChanged = position() != saved_;
    return true;
}

bool UndoHistory::redo(DictionaryStore& store) {
    if (undone_.empty() || depth_ > 0) return false;
    Step step = std::move(undone_.back());
    undone_.pop_back();
    swapIn(store, step);
    done_.push_back(std::move(step));
    store.isChanged = position() != saved_;
    return true;
}

std::size_t UndoHistory::rowsHeld() const {
    std::size_t n = 0;
    for (const Step& s : done_) n += s.rows.size();
    for (const Step& s : undone_) n += s.rows.size();
    return n;
}

void UndoHistory::clear() {
    done_.clear();
    undone_.clear();
    base_ = nextId_++;
    saved_ = base_;
}

void UndoHistory::push(Step step) {
    step.id = nextId_++;
    undone_.clear();
    done_.push_back(std::move(step));
    while (done_.size() > Capacity) {
        base_ = done_.front().id;
        done_.pop_front();
    }
}

UndoStep::UndoStep(UndoHistory& history, const DictionaryStore& store, std::string name, int from,
                   int to)
    : history_(history), store_(store) {
    if (!history.enabled) return;
    const int total = rowCount(store);
    from = std::clamp(from, 0, total);
    to = to < 0 ? total : std::clamp(to, from, total);
    UndoHistory::Step& open = history.open_;
    if (history.depth_++ == 0) {
        outer_ = true;
        // A store that is not marked changed holds what its file holds, however it got there.
        if (!store.isChanged) history.saved_ = history.position();
        open = UndoHistory::Step{};
        open.name = std::move(name);
        open.currentIndex = store.currentIndex;
        open.header = store.header;
        open.hasHeader = store.hasHeader;
        open.rows.reserve(static_cast<std::size_t>(to - from));
        for (int w = from; w < to; ++w) open.rows.push_back(store.row(w));
        history.openFrom_ = from;
        history.openTo_ = to;
        history.openTotal_ = total;
        return;
    }
    // A change inside another one: the rows it may touch that the outer change did not
    // expect are still as they were, so they are added to what was copied.
    if (from < history.openFrom_) {
        std::vector<WordRecord> below;
        for (int w = from; w < history.openFrom_; ++w) below.push_back(store.row(w));
        open.rows.insert(open.rows.begin(), std::make_move_iterator(below.begin()),
                         std::make_move_iterator(below.end()));
        history.openFrom_ = from;
    }
    // Rows after the copied ones sit `moved` rows from where they were when the step began.
    const int moved = total - history.openTotal_;
    const int end = std::min(to - moved, history.openTotal_);
    for (int w = history.openTo_; w < end; ++w) open.rows.push_back(store.row(w + moved));
    history.openTo_ = std::max(history.openTo_, end);
}

void UndoStep::rename(std::string name) {
    if (outer_) history_.open_.name = std::move(name);
}

UndoStep::~UndoStep() {
    if (!history_.enabled) return;
    --history_.depth_;
    if (!outer_) return;
    try {
        UndoHistory::Step step = std::move(history_.open_);
        const DictionaryStore& store = store_;
        const int from = history_.openFrom_;
        const int now =
            std::max(from, history_.openTo_ + rowCount(store) - history_.openTotal_) - from;
        std::vector<WordRecord>& old = step.rows;
        const int before = static_cast<int>(old.size());
        // Rows equal at the end and at the start of the range were not changed.
        int tail = 0;
        while (tail < before && tail < now &&
               old[static_cast<std::size_t>(before - 1 - tail)] == store.row(from + now - 1 - tail))
            ++tail;
        int head = 0;
        while (head < before - tail && head < now - tail &&
               old[static_cast<std::size_t>(head)] == store.row(from + head))
            ++head;
        old.erase(old.end() - tail, old.end());
        old.erase(old.begin(), old.begin() + head);
        step.at = from + head;
        step.held = now - tail - head;
        if (old.empty() && step.held == 0 && step.header == store.header &&
            step.hasHeader == store.hasHeader)
            return;
        old.shrink_to_fit();
        history_.push(std::move(step));
    } catch (...) { // a step that cannot be recorded leaves the history as it was
    }
}

} // namespace nebkaro
