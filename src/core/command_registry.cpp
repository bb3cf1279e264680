#include "core/command_registry.h"

#include "core/app.h"
#include "core/guarded.h"

namespace nebkaro {

void CommandRegistry::add(Command command) {
    const CommandId id = command.id;
    rows_.insert_or_assign(id, std::move(command));
}

CommandHandler CommandRegistry::provide(CommandId id, CommandHandler run) {
    const auto found = rows_.find(id);
    if (found == rows_.end()) return nullptr;
    std::swap(found->second.run, run);
    return run;
}

const Command* CommandRegistry::find(CommandId id) const {
    const auto found = rows_.find(id);
    return found == rows_.end() ? nullptr : &found->second;
}

std::vector<const Command*> CommandRegistry::all() const {
    std::vector<const Command*> out;
    out.reserve(rows_.size());
    for (const auto& [id, row] : rows_) out.push_back(&row);
    return out;
}

bool commandAvailable(const App& app, CommandId id) {
    const Command* c = app.commands.find(id);
    return c && c->run && (!c->enabled || c->enabled(app));
}

bool executeCommand(App& app, CommandId id) {
    const Command* c = app.commands.find(id);
    if (!c || !c->run) return false;
    // A copy: the command may provide or take away commands while it runs.
    const CommandHandler run = c->run;
    runGuarded(app, [&] { run(app); });
    app.windows->wordViewChanged();
    return true;
}

std::optional<CommandId> commandForKey(const CommandRegistry& commands, std::string_view key) {
    for (const Command* c : commands.all())
        if (c->tool && !c->tool->key.empty() && c->tool->key == key) return c->id;
    return std::nullopt;
}

bool runKeyedCommand(App& app, std::string_view key) {
    const auto id = commandForKey(app.commands, key);
    return id && executeCommand(app, *id);
}

} // namespace nebkaro
