#include "ShapeAdvances.h"

#include <iterator>

namespace lettering
{
namespace
{
/// From the blank to the tilde, for capitals 21 high: the widths of the simplex Roman letters of A. V.
/// Hershey, "Calligraphy for Computers", Naval Weapons Laboratory, Dahlgren 1967, which both fonts are made
/// of.
constexpr std::uint8_t simplexWidths[] = {
    16, 10, 16, 21, 20, 24, 26, 10, 14, 14, 16, 26, 10, 26, 10, 22, // blank ! " # $ % & ' ( ) * + , - . /
    20, 20, 20, 20, 20, 20, 20, 20, 20, 20, 10, 10, 24, 26, 24, 18, // 0 ... 9 : ; < = > ?
    27, 18, 21, 21, 21, 19, 18, 21, 22, 8,  16, 21, 17, 24, 22, 22, // @ A ... O
    21, 22, 21, 20, 16, 22, 18, 24, 20, 18, 20, 14, 14, 14, 16, 16, // P ... Z [ \ ] ^ _
    10, 19, 19, 18, 19, 18, 12, 19, 19, 8,  10, 17, 8,  30, 19, 19, // ` a ... o
    19, 19, 13, 17, 12, 19, 16, 22, 17, 16, 17, 14, 8,  14, 24,     // p ... z { | } ~
};
constexpr double capHeight = 21;
constexpr std::uint32_t firstCharacter = L' ';
} // namespace

double shapeAdvance(std::wstring_view font, std::uint32_t character)
{
    const bool isKnown = font == L"romans" || font == L"simplex";
    const bool isInTable =
        character >= firstCharacter && character < firstCharacter + std::size(simplexWidths);
    return isKnown && isInTable ? simplexWidths[character - firstCharacter] / capHeight : 0.0;
}
} // namespace lettering
