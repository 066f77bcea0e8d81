#include "GroupTexts.h"

namespace dxftest
{
std::string smallDrawing()
{
    dxf::MemorySink sink;
    dxf::AsciiWriter to(sink, dxf::TextEncoding(1252));
    to.name(0, "SECTION");
    to.name(2, "HEADER");
    to.name(9, "$ACADVER");
    to.name(1, "AC1015");
    to.name(9, "$DWGCODEPAGE");
    to.name(3, "ANSI_1252");
    to.name(0, "ENDSEC");
    to.name(0, "SECTION");
    to.name(2, "ENTITIES");
    for (int i = 0; i < 20; ++i) {
        to.name(0, "LINE");
        to.handle(5, 0x20u + static_cast<unsigned>(i));
        to.name(100, "AcDbLine");
        to.text(8, L"Stra\u00DFe \u4E2D");
        to.integer(62, i - 5);
        to.point(10, i / 7.0, -i * 1e-9, 1e20);
        to.integer(90, 1 << 20 << (i % 8));
        to.integer(160, std::int64_t(1) << 40);
        to.integer(290, i % 2);
        to.chunks(310, std::string(static_cast<std::size_t>(10 * i), '\xA5'));
        to.text(1001, L"ACAD");
        to.integer(1071, -70000);
    }
    to.name(0, "ENDSEC");
    to.name(0, "EOF");
    to.finish();
    return sink.bytes();
}
} // namespace dxftest
