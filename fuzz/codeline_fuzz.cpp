// The composer's line reader on any text: tokens hold only ASCII letters and digits, each
// ended by one recorded separator; resolving them never fails other than by its two outcomes.
#include "composer/code_parser.h"
#include "core/sign_lists.h"
#include "fuzz_check.h"

#include <string>

using namespace nebkaro;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static SignLists lists = [] {
        SignLists l;
        parseSignList(l, "G17,N35,A1,A2,Aa1,D21,G43\r\n");
        parsePhonetic(l, "G17,m\r\nN35,n\r\nD21,r\r\nG43,w\r\n");
        return l;
    }();
    const std::string line(reinterpret_cast<const char*>(data), size);
    const CodeLine parsed = tokenizeCodeLine(line);
    FUZZ_CHECK(parsed.tokens.size() == parsed.separators.size());
    for (std::size_t i = 0; i < parsed.tokens.size(); ++i) {
        for (char c : parsed.tokens[i].text)
            FUZZ_CHECK((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'));
        const char sep = parsed.separators[i];
        FUZZ_CHECK(sep == '-' || sep == '*' || sep == ':');
        const TokenResolution r = resolveToken(lists, parsed.tokens[i].text);
        if (r.outcome == TokenResolution::Outcome::Found)
            FUZZ_CHECK(lists.findSign(r.code) == r.entry && r.entry > 0);
    }
    (void)separatorDiagnostic(parsed.separators);
    return 0;
}
