// fuzz_input LINES [SEED]: answers questions with that many random lines.
//
// Each line is made of pieces of the command line's syntax, or of any characters, and goes to one of the
// input functions. A function must return one of its documented results, leave its result alone unless that
// is RTNORM, give finite numbers within their range, and use up what was typed: no question may be asked for
// ever.

#include "CommandLine.h"
#include "Headless.h"
#include "InputSource.h"

#include "acdocman.h"
#include "acedads.h"
#include "dbcircle.h"
#include "dbjig.h"
#include "dbline.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <stdexcept>

namespace
{
using Random = std::mt19937;

std::size_t below(Random& random, std::size_t limit)
{
    return random() % limit;
}

std::wstring piece(Random& random)
{
    static constexpr const wchar_t* pieces[] = {
        L"@",          L"<",    L"<<",      L"<<<",     L",",      L"*",         L"#",    L".",
        L".x",         L".xy",  L"end",     L"mid,int", L"per",    L"non",       L"from", L"m2p",
        L"1",          L"-2.5", L"1e3",     L"1e308",   L"1e-400", L"1/2",       L"1/0",  L"5'6-1/2\"",
        L"45d30'15\"", L"N45E", L"50g",     L"2r",      L"nan",    L"inf",       L"Yes",  L"x",
        L"_No",        L"_",    L" ",       L" ",       L"\n",     L"\n",        L"^C",   L"\"",
        L"(",          L")",    L"(+ 1 2)", L"!a",      L"'",      L"'NOTHING ", L"墙",   L"\t",
    };
    if (random() % 8 == 0)
        return std::wstring(1, static_cast<wchar_t>(1 + random() % (random() % 4 ? 0x7E : 0x10FFFE)));
    return pieces[below(random, std::size(pieces))];
}

std::wstring line(Random& random)
{
    std::wstring text;
    for (std::size_t i = below(random, 9); i > 0; --i)
        text += piece(random);
    return text + L"\n";
}

void require(bool holds, const char* claim)
{
    if (!holds) throw std::runtime_error(claim);
}

bool isResult(int code)
{
    return code == RTNORM || code == RTNONE || code == RTKWORD || code == RTCAN || code == RTERROR;
}

bool isFinite(const double* point)
{
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

class AnyJig : public AcEdJig
{
public:
    explicit AnyJig(unsigned kind) : mKind(kind)
    {
        setKeywordList(L"Yes No eXit");
        setUserInputControls(static_cast<UserInputControls>(kind * 0x2F));
    }
    DragStatus sampler() override
    {
        double number = 0.0;
        wchar_t text[4];
        switch (mKind % 4) {
        case 0:
            return acquirePoint(mAt, AcGePoint3d(1, 1, 1));
        case 1:
            return acquireDist(number);
        case 2:
            return acquireAngle(number, mAt);
        default:
            return acquireString(text);
        }
    }

private:
    unsigned mKind;
    AcGePoint3d mAt;
};

void askForPoint(unsigned kind)
{
    const ads_point base = {3, 4, 0};
    ads_name set;
    acedSSAdd(nullptr, nullptr, set);
    ads_point point = {7, 7, 7};
    const int code = kind & 1   ? acedGetPoint(kind & 2 ? base : nullptr, L"", point)
                     : kind & 4 ? acedGetCorner(base, L"", point)
                                : acedDragGen(set, L"", 0, nullptr, point);
    acedSSFree(set);
    require(isResult(code) || code == RTSTR, "a documented result");
    require(code == RTNORM ? isFinite(point) : point[0] == 7.0, "a finite point, or none");
}

void askForNumber(unsigned kind)
{
    const ads_point base = {3, 4, 0};
    const double* from = kind & 1 ? base : nullptr;
    double value = 7.0;
    const int code = kind & 2   ? acedGetDist(from, L"", &value)
                     : kind & 4 ? acedGetAngle(from, L"", &value)
                     : kind & 8 ? acedGetOrient(from, L"", &value)
                                : acedGetReal(L"", &value);
    require(isResult(code), "a documented result");
    require(code == RTNORM ? !std::isnan(value) : value == 7.0, "a number, or none");
    if (!(kind & 2) && (kind & 12)) require(value >= 0.0 && value <= 7.0, "an angle within a turn");
}

void askForText(unsigned kind)
{
    wchar_t text[9] = L"";
    int whole = 7;
    const int code = kind & 1   ? acedGetString(kind & 2, L"", text)
                     : kind & 4 ? acedGetKword(L"", text)
                                : acedGetInt(L"", &whole);
    require(isResult(code) || code == RTINPUTTRUNCATED, "a documented result");
    require(whole >= -32768 && whole <= 32767 && std::wcslen(text) <= 8, "a result within its range");
}

void ask(unsigned kind)
{
    if (kind & 1)
        acedInitGet(static_cast<int>((kind >> 4) & 0x1FFF),
                    kind & 2 ? L"Yes No eXit _Ja Nein Ende" : nullptr);
    resbuf event{};
    int type = 0;
    switch ((kind >> 20) % 5) {
    case 0:
        return askForPoint(kind >> 24);
    case 1:
        return askForNumber(kind >> 24);
    case 2:
        return askForText(kind >> 24);
    case 3:
        acedGrRead(static_cast<int>(kind >> 24), &type, &event);
        return;
    default:
        AnyJig(kind >> 24).drag();
    }
}

void draw()
{
    AcDbBlockTableRecord* space = nullptr;
    acDocManager->lockDocument(acDocManager->curDocument());
    if (acdbOpenObject(space, acdbHostApplicationServices()->workingDatabase()->currentSpaceId(),
                       AcDb::kForWrite) == Acad::eOk) {
        AcDbEntity* const entities[] = {new AcDbLine({0, 0, 0}, {10, 10, 0}),
                                        new AcDbCircle({1, 1, 0}, AcGeVector3d::kZAxis, 2)};
        for (AcDbEntity* entity : entities) {
            space->appendAcDbEntity(entity);
            entity->close();
        }
        space->close();
    }
    acDocManager->unlockDocument(acDocManager->curDocument());
}

void answerLine(Random& random)
{
    ed::InputSource& input = ed::currentInput();
    input.type(line(random), false);
    if (random() % 4 == 0) input.give(ed::Answer::ofMove({static_cast<double>(random() % 9), 1, 0}));
    for (int questions = 0; !input.empty(); ++questions) {
        require(questions < 200, "every question uses up an answer");
        ask(static_cast<unsigned>(random()));
    }
}
} // namespace

int main(int count, char** arguments)
{
    if (count < 2) return std::printf("fuzz_input LINES [SEED]\n"), 2;
    const long lines = std::atol(arguments[1]);
    unsigned seed = count > 2 ? static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10)) : 1;
    ed::setCommandLineListener([](std::wstring_view) {});
    if (acDocManager->appContextNewDocument(nullptr) != Acad::eOk) return 1;
    draw();
    for (long i = 0; i < lines; ++i, ++seed) {
        Random random(seed); // of its own, so that one line can be repeated alone
        try {
            answerLine(random);
        } catch (const std::exception& fault) {
            Random again(seed);
            std::printf("seed %u: not so: %s; the line: %ls\n", seed, fault.what(), line(again).c_str());
            return 1;
        }
    }
    std::printf("%ld lines answered; no fault\n", lines);
    return 0;
}
