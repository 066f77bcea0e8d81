#include "OpenDrawing.h"

#include "AsciiReader.h"
#include "BinaryReader.h"
#include "Blanks.h"

namespace dxf
{
namespace
{
constexpr std::size_t searchedForStart = 64 * 1024;

bool startsWith(std::string_view bytes, std::string_view start)
{
    return bytes.substr(0, start.size()) == start;
}

/// The versions that DWG files start with: AC and four digits, or MC0.0, AC1.2 ... of the first ones.
bool isDwg(std::string_view bytes)
{
    const auto isDigitAt = [&](std::size_t i) { return bytes[i] >= '0' && bytes[i] <= '9'; };
    if (bytes.size() < 6 || (!startsWith(bytes, "AC") && !startsWith(bytes, "MC"))) return false;
    return isDigitAt(2) && (isDigitAt(3) || bytes[3] == '.') && isDigitAt(4);
}

/// True when the text starts with a record, or a section starts near its start: a damaged file may begin
/// with something else.
bool looksLikeGroups(const std::shared_ptr<const Input>& input)
{
    AsciiReader reader(Input::ofBytes(input->bytes().substr(0, searchedForStart)));
    if (!reader.next()) return false;
    if (reader.group().code() == 0 && reader.faults().count() == 0) return true;
    do {
        if (reader.group().is(0, "SECTION")) return true;
    } while (reader.next());
    return false;
}

std::unique_ptr<GroupReader> makeReader(const std::shared_ptr<const Input>& input)
{
    if (startsWith(input->bytes(), binarySentinel)) return std::make_unique<BinaryReader>(input);
    return std::make_unique<AsciiReader>(input);
}

struct Header {
    FileVersion version = FileVersion::r12;
    std::string codePage;
};

/// What the variables in front of the first record say; those are the header's.
Header readHeader(GroupReader& reader)
{
    Header header;
    std::string_view variable;
    while (reader.next() && (reader.group().code() != 0 || reader.group().is(0, "SECTION"))) {
        const Group& group = reader.group();
        if (group.code() == 9)
            variable = group.text();
        else if (variable == "$ACADVER" && group.code() == 1)
            header.version = versionOf(withoutBlanks(group.text()));
        else if (variable == "$DWGCODEPAGE" && group.code() == 3)
            header.codePage = withoutBlanks(group.text());
    }
    return header;
}

OpenStatus statusOf(FileStatus status)
{
    switch (status) {
    case FileStatus::done:
        return OpenStatus::opened;
    case FileStatus::notFound:
        return OpenStatus::notFound;
    case FileStatus::accessDenied:
        return OpenStatus::accessDenied;
    default:
        return OpenStatus::cannotRead;
    }
}
} // namespace

const char* reasonOf(OpenStatus status)
{
    switch (status) {
    case OpenStatus::opened:
        return "opened";
    case OpenStatus::notFound:
        return "no such file";
    case OpenStatus::accessDenied:
        return "access denied";
    case OpenStatus::cannotRead:
        return "the file cannot be read";
    case OpenStatus::empty:
        return "the file is empty";
    case OpenStatus::binaryDwg:
        return "DWG files are not read; save the drawing as DXF";
    case OpenStatus::notDrawing:
        return "not a drawing file";
    }
    return "unknown status";
}

OpenedDrawing openDrawing(const std::wstring& path, UINT codePage)
{
    FileStatus status;
    std::shared_ptr<const Input> input = Input::ofFile(path, status);
    if (!input) return {statusOf(status), nullptr};
    return openDrawing(std::move(input), codePage);
}

OpenedDrawing openDrawing(std::shared_ptr<const Input> input, UINT codePage)
{
    const std::string_view bytes = input->bytes();
    if (withoutBlanks(bytes).empty()) return {OpenStatus::empty, nullptr};
    if (isDwg(bytes)) return {OpenStatus::binaryDwg, nullptr};
    if (!startsWith(bytes, binarySentinel) && !looksLikeGroups(input))
        return {OpenStatus::notDrawing, nullptr};
    const Header header = readHeader(*makeReader(input));
    std::unique_ptr<GroupReader> reader = makeReader(input);
    reader->setHeader(header.version, TextEncoding::ofHeader(header.version, header.codePage, codePage));
    return {OpenStatus::opened, std::move(reader)};
}
} // namespace dxf
