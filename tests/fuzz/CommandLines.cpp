#include "CommandLines.h"

#include "accmd.h"

#include <memory>

namespace
{
using fuzz::Random;
using Texts = std::vector<std::string>;

const std::string& anyOf(Random& random, const Texts& all)
{
    return all[random() % all.size()];
}

std::string noise(Random& random)
{
    std::string text;
    for (auto count = 1 + random() % 12; count > 0; --count) {
        const auto c = static_cast<char>(random());
        // No other folder, no end of the line.
        if (c != '/' && c != '\\' && c != '\n' && c != ':') text += c;
    }
    return text;
}

std::string number(Random& random)
{
    static const Texts odd = {"0", "-1", "1e308", "-1e-308", "nan", "inf", "99999999999", ".", "1'6\""};
    return random() % 2 ? anyOf(random, odd) : std::to_string(static_cast<int>(random() % 2000) - 1000);
}

/// What commands ask for, and what none of them takes.
const Texts words = {"?",
                     "Y",
                     "N",
                     "ALL",
                     "L",
                     "P",
                     "W",
                     "C",
                     "E",
                     "S",
                     "M",
                     "B",
                     "BE",
                     "A",
                     "R",
                     "D",
                     "X",
                     "ZA",
                     "3",
                     "NA",
                     "OB",
                     "XYZ",
                     "=",
                     "Door",
                     "*Door",
                     "Door=",
                     "c.dxf",
                     "*",
                     "\"",
                     "\"a b",
                     "(",
                     ")",
                     "(setq a",
                     "(command",
                     "!a",
                     "'ZOOM",
                     "@",
                     "@1<45",
                     "<90",
                     ".xy",
                     "^C",
                     "\x1b",
                     ",",
                     "end",
                     "a.dxf",
                     "x.scr",
                     "LTSCALE",
                     "OSMODE",
                     "0",
                     "Layer1",
                     "red",
                     "_",
                     ".",
                     "-",
                     "'",
                     "(car",
                     "(/ 1 0)",
                     "\t",
                     "\xE5\x9B\xBE",
                     "(getvar \"OSMODE\")",
                     "(command \"_.LINE\" \"0,0\" \"1,1\" \"\")",
                     ""};

/// Commands with answers to what they ask, each answer followed by a blank.
const Texts phrases = {
    "LINE 0,0 10,1 7,9 C ",
    "LINE 5,5 U 1,1 @3<60  ",
    "CIRCLE 4,4 D 6 ",
    "CIRCLE 4,4 2 ",
    "POINT 3,3 ",
    "BOUNDARY 5,3  ",
    "LAYER M Walls C 3   ",
    "LAYER F *  ",
    "MOVE ALL  0,0 5,5 ",
    "MOVE L  1,1  ",
    "COPY L  0,0 5,5 7,7  ",
    "COPY L  0,0 A 4 1,1  ",
    "ROTATE ALL  0,0 30 ",
    "ROTATE L  1,0 C 45 ",
    "ROTATE P  0,0 R 0 45 ",
    "SCALE ALL  0,0 2 ",
    "SCALE L  0,0 R 1 3 ",
    "EXPLODE ALL  ",
    "EXPLODE L  ",
    "ERASE L  ",
    "ERASE ALL  ",
    "INSERT Door 1,2 2  30 said ",
    "INSERT Door S -1 9,2 15  ",
    "INSERT *Door 0,0 2 0 ",
    "INSERT c.dxf 0,0 1 1 0 ",
    "INSERT Door=c 0,0 XYZ 1 2 3 0 ",
    "WBLOCK c.dxf Y Door ",
    "WBLOCK c.dxf Door ",
    "WBLOCK a.dxf Y * ",
    "WBLOCK a.dxf  0,0 L  ",
    "UCS W ",
    "UCS 3 1,1 2,1 1,3 ",
    "UCS Z 30 ",
    "UCS NA S mine Y ",
    "UCS NA R mine ",
    "UCS P ",
    "UCS OB L ",
    "U ",
    "UNDO 3 ",
    "UNDO BE ",
    "UNDO E ",
    "UNDO M ",
    "UNDO B Y ",
    "UNDO C O ",
    "UNDO C N ",
    "UNDO C A ",
    "REDO ",
    "MREDO A ",
    "ZOOM E ",
    "ZOOM .5X ",
    "PAN 0,0 1,1 ",
    "SETVAR LTSCALE 2 ",
    "SETVAR CLAYER Walls ",
    "SAVEAS a.dxf Y ",
    "LIST ALL  ",
};

std::string piece(Random& random, const Texts& commands)
{
    switch (random() % 8) {
    case 0:
        return noise(random);
    case 1:
        return number(random) + "," + number(random) + (random() % 2 ? "," + number(random) : "");
    case 2:
        return number(random);
    case 3:
    case 4:
        return (random() % 4 ? "" : anyOf(random, {"_", ".", "'", "-", "_."})) + anyOf(random, commands);
    default:
        return random() % 300 ? anyOf(random, words) : "PLOT Model a.svg ";
    }
}

/// A phrase, whole or with one of its answers lost.
std::string phrase(Random& random)
{
    std::string text = anyOf(random, phrases);
    if (random() % 4 != 0) return text;
    const std::size_t from = text.find(' ', random() % text.size());
    const std::size_t to = text.find(' ', from + 1);
    return to == std::string::npos ? text.substr(0, from) : text.erase(from, to - from);
}
} // namespace

namespace fuzz
{
std::vector<std::string> commandNames()
{
    Texts names;
    const std::unique_ptr<AcEdCommandIterator> walk(acedRegCmds->iterator());
    for (; !walk->done(); walk->next()) {
        const std::wstring name = walk->command()->globalName();
        if (name == L"DELAY" || name == L"PLOT") continue; // slow, and PLOT is among the pieces
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

std::string randomLine(Random& random, const std::vector<std::string>& commands)
{
    std::string line;
    if (random() % 2) {
        for (auto count = 1 + random() % 4; count > 0; --count)
            line += phrase(random);
        return line;
    }
    for (auto count = 1 + random() % 9; count > 0; --count)
        line += piece(random, commands) + (random() % 9 ? " " : "");
    return line;
}
} // namespace fuzz
