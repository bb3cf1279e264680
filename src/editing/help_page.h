#pragma once
// The help page's generated parts: every command with its menu items, buttons and keys, and
// the plain letters that the Transliteration font draws as scholarly letters. helpPage takes
// the shipped page and puts them afresh between its markers "<!-- commands -->" ...
// "<!-- /commands -->" and "<!-- letters -->" ... "<!-- /letters -->"; a page without the
// markers gets them appended.
#include "core/command_registry.h"

#include <string>
#include <string_view>

namespace nebkaro {

std::string commandListHtml(const CommandRegistry& commands);
std::string letterCodeHtml();
std::string helpPage(const CommandRegistry& commands, std::string_view page);

} // namespace nebkaro
