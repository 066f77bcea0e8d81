#include "AsciiReader.h"

#include "Blanks.h"
#include "NumberText.h"

#include <cstring>
#include <limits>

namespace dxf
{
namespace
{
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr char controlZ = 0x1A;

bool isName(int code)
{
    return code == 0 || code == 9 || code == 100 || code == 102;
}

/// The byte that ends the lines: a carriage return when no line feed follows the first one.
char lineEndOf(std::string_view bytes)
{
    const std::size_t first = bytes.find_first_of("\r\n");
    if (first == std::string_view::npos || bytes[first] == '\n') return '\n';
    const std::size_t behind = bytes.find_first_not_of('\r', first);
    return behind != std::string_view::npos && bytes[behind] == '\n' ? '\n' : '\r';
}

bool fits(GroupKind kind, std::int64_t value)
{
    switch (kind) {
    case GroupKind::int16:
        return value >= std::numeric_limits<std::int16_t>::min() &&
               value <= std::numeric_limits<std::int16_t>::max();
    case GroupKind::int32:
        return value >= std::numeric_limits<std::int32_t>::min() &&
               value <= std::numeric_limits<std::int32_t>::max();
    case GroupKind::boolean:
        return value >= 0 && value <= 1;
    default:
        return true;
    }
}

} // namespace

AsciiReader::AsciiReader(std::shared_ptr<const Input> source) : GroupReader(std::move(source))
{
    std::string_view bytes = input()->bytes();
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark) bytes.remove_prefix(byteOrderMark.size());
    _at = bytes.data();
    _end = bytes.data() + bytes.size();
    _lineEnd = lineEndOf(bytes);
}

bool AsciiReader::read(Group& group)
{
    while (readCode(group)) {
        if (_at == _end) {
            note(FaultKind::loneCode, group);
            break;
        }
        if (group._code == commentCode && !hasComments()) {
            takeLine();
            continue;
        }
        readValue(group);
        if (group._code == 0) enterRecord(group);
        if (group.is(0, "EOF")) finish();
        return true;
    }
    if (!_isFinished) faults().add(FaultKind::noEnd, _line);
    finish();
    return false;
}

void AsciiReader::finish()
{
    _at = _end;
    _isFinished = true;
}

/// Takes lines until one is a group code; false when none is left.
bool AsciiReader::readCode(Group& group)
{
    while (_at != _end && *_at != controlZ) {
        const std::size_t line = _line;
        const int code = takeCode();
        if (code >= 0) {
            group = Group(code);
            group._position = line;
            return true;
        }
        faults().add(FaultKind::badCode, line);
    }
    return false;
}

/// Takes a line and returns its group code, -1 when it is none.
int AsciiReader::takeCode()
{
    skipBlanks();
    std::int64_t code = -1;
    const NumberScan scan = scanInteger(_at, _end, code);
    if (scan.outcome != NumberOutcome::done || !isGroupCode(code)) {
        takeLine();
        return -1;
    }
    if (takeLineEnd(scan.end)) return static_cast<int>(code);
    _at = scan.end;
    return withoutBlanks(takeLine()).empty() ? static_cast<int>(code) : -1;
}

void AsciiReader::readValue(Group& group)
{
    switch (group._kind) {
    case GroupKind::text:
        group._text = isName(group._code) ? withoutBlanks(takeLine()) : takeLine();
        break;
    case GroupKind::real:
        readReal(group);
        break;
    case GroupKind::handle:
        readHandle(group);
        break;
    case GroupKind::chunk:
        readChunk(group);
        break;
    default:
        readInteger(group);
    }
}

void AsciiReader::readReal(Group& group)
{
    skipBlanks();
    group._real = 0;
    const NumberScan scan = scanReal(_at, _end, group._real);
    const std::string_view rest = finishNumber(group, scan.end);
    if (scan.outcome == NumberOutcome::none)
        markMalformed(group, FaultKind::badNumber);
    else if (scan.outcome == NumberOutcome::notFinite)
        markMalformed(group, FaultKind::notFinite);
    else if (!rest.empty())
        note(FaultKind::numberRemainder, group);
}

void AsciiReader::readInteger(Group& group)
{
    skipBlanks();
    group._integer = 0;
    const NumberScan scan = scanInteger(_at, _end, group._integer);
    const std::string_view rest = finishNumber(group, scan.end);
    if (!rest.empty() && std::strchr(".eE", rest.front()))
        cutFraction(group);
    else if (scan.outcome == NumberOutcome::none)
        markMalformed(group, FaultKind::badNumber);
    else if (scan.outcome == NumberOutcome::tooLarge)
        markMalformed(group, FaultKind::outOfRange);
    else if (!fits(group._kind, group._integer))
        note(FaultKind::outOfRange, group);
    else if (!rest.empty())
        note(FaultKind::numberRemainder, group);
}

/// The integer part of the real that the line of an integer group holds.
void AsciiReader::cutFraction(Group& group)
{
    constexpr double limit = 9e18;
    double value = 0;
    const std::string_view text = group._text;
    const NumberScan scan = scanReal(text.data(), text.data() + text.size(), value);
    const bool isNumber = scan.outcome == NumberOutcome::done && value > -limit && value < limit;
    group._integer = isNumber ? static_cast<std::int64_t>(value) : 0;
    if (isNumber)
        note(FaultKind::notAnInteger, group);
    else
        markMalformed(group, FaultKind::badNumber);
}

void AsciiReader::readHandle(Group& group)
{
    skipBlanks();
    std::uint64_t value = 0;
    const NumberScan scan = scanHex(_at, _end, value);
    const std::string_view rest = finishNumber(group, scan.end);
    group._isMalformed = scan.outcome != NumberOutcome::done || !rest.empty();
    if (group._isMalformed)
        noteBadHandle(group);
    else
        group._integer = static_cast<std::int64_t>(value);
}

void AsciiReader::readChunk(Group& group)
{
    group._text = withoutBlanks(takeLine());
    group._isHex = isHexData(group._text);
    if (!group._isHex) markMalformed(group, FaultKind::badChunk);
}

/// Takes the rest of the line whose number ends at `end`. The group's text is the line without blanks
/// around it, the result what of it stands behind the number.
std::string_view AsciiReader::finishNumber(Group& group, const char* end)
{
    const char* const start = _at;
    if (takeLineEnd(end)) {
        group._text = {start, static_cast<std::size_t>(end - start)};
        return {};
    }
    group._text = withoutBlanks(takeLine());
    const auto length = static_cast<std::size_t>(end - start);
    return group._text.size() > length ? withoutBlanks(group._text.substr(length)) : std::string_view();
}

void AsciiReader::markMalformed(Group& group, FaultKind kind)
{
    group._isMalformed = true;
    note(kind, group);
}

/// Goes behind the end of the line when it is at `at`; the end of the file is one too.
bool AsciiReader::takeLineEnd(const char* at)
{
    if (at != _end) {
        if (*at == '\r' && at[1] == '\n' && _lineEnd == '\n') ++at;
        if (*at != _lineEnd) return false;
        ++at;
    }
    _at = at;
    ++_line;
    return true;
}

/// Takes the rest of the line, without its end.
std::string_view AsciiReader::takeLine()
{
    const char* const start = _at;
    const auto left = static_cast<std::size_t>(_end - _at);
    const void* const found = std::memchr(_at, _lineEnd, left);
    const char* stop = found ? static_cast<const char*>(found) : _end;
    _at = found ? stop + 1 : _end;
    ++_line;
    while (stop != start && stop[-1] == '\r')
        --stop;
    return {start, static_cast<std::size_t>(stop - start)};
}

void AsciiReader::skipBlanks()
{
    while (*_at == ' ' || *_at == '\t')
        ++_at;
}
} // namespace dxf
