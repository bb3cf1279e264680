#include "editing/help_page.h"

#include "core/text.h"
#include "editing/command_layout.h"
#include "translit/unicode_translit.h"

#include <cctype>

namespace nebkaro {

namespace {

// A menu caption as it reads: the access-letter marks dropped, "&&" kept as one "&".
std::string readable(std::string_view caption) {
    std::string out;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        out += caption[i];
    }
    return out;
}

void menuPaths(const MenuItem& m, const std::string& above, CommandId id,
               std::vector<std::string>& out) {
    const std::string path =
        above.empty() ? readable(m.caption) : above + " > " + readable(m.caption);
    if (m.command && *m.command == id) out.push_back(path);
    for (const MenuItem& c : m.children) menuPaths(c, path, id, out);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string out;
    for (const std::string& p : parts) out += (out.empty() ? "" : "<br>") + text::escapeHtml(p);
    return out;
}

void replaceBlock(std::string& page, std::string_view name, const std::string& body) {
    const std::string open = "<!-- " + std::string(name) + " -->";
    const std::string close = "<!-- /" + std::string(name) + " -->";
    const std::size_t from = page.find(open);
    const std::size_t to = from == std::string::npos ? from : page.find(close, from);
    if (to == std::string::npos) {
        page += "\n" + open + "\n" + body + close + "\n";
        return;
    }
    page.replace(from + open.size(), to - from - open.size(), "\n" + body);
}

} // namespace

std::string commandListHtml(const CommandRegistry& commands) {
    std::string html = "<table class=\"commands\">\n"
                       "<tr><th>Command</th><th>Menu</th><th>Button</th><th>Tool bar</th>"
                       "<th>Keys</th></tr>\n";
    for (const Command* c : commands.all()) {
        if (c->help.empty()) continue;
        std::vector<std::string> menus, buttons, tools, keys;
        for (const MenuItem& top : menuBarItems()) menuPaths(top, "", c->id, menus);
        for (const MenuItem& item : popupMenuItems().children)
            if (item.command == c->id) menus.push_back("Right click on the word > " + item.caption);
        for (const ViewButton& b : wordViewButtons())
            if (b.command == c->id) buttons.emplace_back(b.caption);
        if (c->tool) tools.emplace_back(c->tool->toolTip);
        for (const Key& k : c->keys)
            keys.push_back(std::string(k.keys) + (k.scope == ShortcutScope::DisplayArea
                                                      ? " (on the word's picture)"
                                                      : ""));
        html += "<tr><td>" + text::escapeHtml(c->help) + "</td><td>" + joined(menus) + "</td><td>" +
                joined(buttons) + "</td><td>" + joined(tools) + "</td><td>" + joined(keys) +
                "</td></tr>\n";
    }
    return html + "</table>\n";
}

std::string letterCodeHtml() {
    std::string html = "<table class=\"letters\">\n"
                       "<tr><th>Type</th><th>to write</th></tr>\n";
    // Every plain letter the font draws as another letter.
    for (char c = 'A'; c <= 'z'; ++c) {
        if (!std::isalpha(static_cast<unsigned char>(c))) continue;
        const std::string scholarly = scholarlyFromPlain(std::string(1, c));
        if (scholarly == std::string(1, c)) continue;
        html += std::string("<tr><td><code>") + c + "</code></td><td class=\"scholarly\">" +
                text::escapeHtml(scholarly) + "</td></tr>\n";
    }
    return html + "</table>\n";
}

std::string helpPage(const CommandRegistry& commands, std::string_view page) {
    std::string out(page);
    replaceBlock(out, "commands", commandListHtml(commands));
    replaceBlock(out, "letters", letterCodeHtml());
    return out;
}

} // namespace nebkaro
