// Any bytes as imported text, by every form of either side: the session ends with cells that the grid can
// read, or as it was.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "data/cell.h"
#include "data/importtable.h"
#include "data/textimport.h"
#include "data/textnormalize.h"
#include "data/utf8.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void checkgrid() {
    require(session.gridCells.size() <= 25 && session.gridTitles.size() <= session.gridCells.size());
    for (const auto& column : session.gridCells)
        for (const std::string& cell : column) {
            require(cell.find_first_of("\t\r\n") == std::string::npos);
            if (cell.starts_with('?')) require(!cellsplit(cell).hasValue);
        }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string text(reinterpret_cast<const char*>(data + 2), size - 2);
    const std::string decoded = decodetext(text);
    require(isutf8(decoded));
    const TextLook look = textlook(decoded);
    if (!look.undecided()) {
        const std::string once = textnormalize(decoded, look.marks);
        require(once.find('\n') == std::string::npos);
    }
    session.noPrompt = 1;
    session.progSide = data[0] & 1 ? lifeSide : visualSide;
    session.decimalWanted = data[0] & 2 ? "" : data[0] & 4 ? "," : ".";
    session.negativeXAllowed = data[0] & 8 ? 1 : 0;
    const auto letters = importletters(session.progSide);
    const ImportLetter& letter = letters[data[1] % letters.size()];
    const std::size_t variant = data[0] / 16u % letter.forms.size();
    session.formatWanted = data[1] == 0xFF ? "" : importcode({&letter, &letter.forms[variant]});
    session.inputType = standard0;
    session.gridCells = {{"1"}};
    session.gridTitles.clear();
    session.msg = text;
    if (textimport(TextFrom::text) == TextRead::read)
        checkgrid();
    else
        require(session.gridCells.size() == 1 && session.gridCells[0].size() == 1);
    return 0;
}
