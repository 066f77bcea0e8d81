#pragma once

/// The dimension variables: name, name after "set", group code in dimension styles and overrides, value of a new style.
/// The header variables of drawings bear the same names, in capitals behind "$".
///
/// Lengths are in drawing units for an overall scale (DIMSCALE) of 1.

#define ACDB_DIM_REALS(VARIABLE)                                                                             \
    VARIABLE(dimscale, Dimscale, 40, 1.0)                                                                    \
    VARIABLE(dimasz, Dimasz, 41, 0.18)                                                                       \
    VARIABLE(dimexo, Dimexo, 42, 0.0625)                                                                     \
    VARIABLE(dimdli, Dimdli, 43, 0.38)                                                                       \
    VARIABLE(dimexe, Dimexe, 44, 0.18)                                                                       \
    VARIABLE(dimrnd, Dimrnd, 45, 0.0)                                                                        \
    VARIABLE(dimdle, Dimdle, 46, 0.0)                                                                        \
    VARIABLE(dimtp, Dimtp, 47, 0.0)                                                                          \
    VARIABLE(dimtm, Dimtm, 48, 0.0)                                                                          \
    VARIABLE(dimfxlen, Dimfxlen, 49, 1.0)                                                                    \
    VARIABLE(dimtxt, Dimtxt, 140, 0.18)                                                                      \
    VARIABLE(dimcen, Dimcen, 141, 0.09)                                                                      \
    VARIABLE(dimtsz, Dimtsz, 142, 0.0)                                                                       \
    VARIABLE(dimaltf, Dimaltf, 143, 25.4)                                                                    \
    VARIABLE(dimlfac, Dimlfac, 144, 1.0)                                                                     \
    VARIABLE(dimtvp, Dimtvp, 145, 0.0)                                                                       \
    VARIABLE(dimtfac, Dimtfac, 146, 1.0)                                                                     \
    VARIABLE(dimgap, Dimgap, 147, 0.09)                                                                      \
    VARIABLE(dimaltrnd, Dimaltrnd, 148, 0.0)

/// The jog angle, in radians (degrees in files).
#define ACDB_DIM_ANGLES(VARIABLE) VARIABLE(dimjogang, Dimjogang, 50, 0.78539816339744831)

#define ACDB_DIM_INTEGERS(VARIABLE)                                                                          \
    VARIABLE(dimtfill, Dimtfill, 69, 0)                                                                      \
    VARIABLE(dimtad, Dimtad, 77, 0)                                                                          \
    VARIABLE(dimzin, Dimzin, 78, 0)                                                                          \
    VARIABLE(dimazin, Dimazin, 79, 0)                                                                        \
    VARIABLE(dimarcsym, Dimarcsym, 90, 0)                                                                    \
    VARIABLE(dimaltd, Dimaltd, 171, 2)                                                                       \
    VARIABLE(dimadec, Dimadec, 179, 0)                                                                       \
    VARIABLE(dimunit, Dimunit, 270, 2)                                                                       \
    VARIABLE(dimdec, Dimdec, 271, 4)                                                                         \
    VARIABLE(dimtdec, Dimtdec, 272, 4)                                                                       \
    VARIABLE(dimaltu, Dimaltu, 273, 2)                                                                       \
    VARIABLE(dimalttd, Dimalttd, 274, 2)                                                                     \
    VARIABLE(dimaunit, Dimaunit, 275, 0)                                                                     \
    VARIABLE(dimfrac, Dimfrac, 276, 0)                                                                       \
    VARIABLE(dimlunit, Dimlunit, 277, 2)                                                                     \
    VARIABLE(dimdsep, Dimdsep, 278, '.')                                                                     \
    VARIABLE(dimtmove, Dimtmove, 279, 0)                                                                     \
    VARIABLE(dimjust, Dimjust, 280, 0)                                                                       \
    VARIABLE(dimtolj, Dimtolj, 283, 1)                                                                       \
    VARIABLE(dimtzin, Dimtzin, 284, 0)                                                                       \
    VARIABLE(dimaltz, Dimaltz, 285, 0)                                                                       \
    VARIABLE(dimalttz, Dimalttz, 286, 0)                                                                     \
    VARIABLE(dimfit, Dimfit, 287, 3)                                                                         \
    VARIABLE(dimatfit, Dimatfit, 289, 3)

#define ACDB_DIM_SWITCHES(VARIABLE)                                                                          \
    VARIABLE(dimtol, Dimtol, 71, 0)                                                                          \
    VARIABLE(dimlim, Dimlim, 72, 0)                                                                          \
    VARIABLE(dimtih, Dimtih, 73, 1)                                                                          \
    VARIABLE(dimtoh, Dimtoh, 74, 1)                                                                          \
    VARIABLE(dimse1, Dimse1, 75, 0)                                                                          \
    VARIABLE(dimse2, Dimse2, 76, 0)                                                                          \
    VARIABLE(dimalt, Dimalt, 170, 0)                                                                         \
    VARIABLE(dimtofl, Dimtofl, 172, 0)                                                                       \
    VARIABLE(dimsah, Dimsah, 173, 0)                                                                         \
    VARIABLE(dimtix, Dimtix, 174, 0)                                                                         \
    VARIABLE(dimsoxd, Dimsoxd, 175, 0)                                                                       \
    VARIABLE(dimsd1, Dimsd1, 281, 0)                                                                         \
    VARIABLE(dimsd2, Dimsd2, 282, 0)                                                                         \
    VARIABLE(dimupt, Dimupt, 288, 0)                                                                         \
    VARIABLE(dimfxlenOn, DimfxlenOn, 290, 0)

/// Colours, by number.
#define ACDB_DIM_COLORS(VARIABLE)                                                                            \
    VARIABLE(dimclrd, Dimclrd, 176, 0)                                                                       \
    VARIABLE(dimclre, Dimclre, 177, 0)                                                                       \
    VARIABLE(dimclrt, Dimclrt, 178, 0)

/// The colour behind texts. Its group is the second 70 of a style; the first has the flags of the record.
#define ACDB_DIM_FILL_COLOR(VARIABLE) VARIABLE(dimtfillclr, Dimtfillclr, 70, 0)

#define ACDB_DIM_TEXTS(VARIABLE)                                                                             \
    VARIABLE(dimpost, Dimpost, 3, L"")                                                                       \
    VARIABLE(dimapost, Dimapost, 4, L"")

/// Text style, arrow blocks and line types; null: standard, the filled arrow, by block.
#define ACDB_DIM_REFERENCES(VARIABLE)                                                                        \
    VARIABLE(dimtxsty, Dimtxsty, 340, nullptr)                                                               \
    VARIABLE(dimldrblk, Dimldrblk, 341, nullptr)                                                             \
    VARIABLE(dimblk, Dimblk, 342, nullptr)                                                                   \
    VARIABLE(dimblk1, Dimblk1, 343, nullptr)                                                                 \
    VARIABLE(dimblk2, Dimblk2, 344, nullptr)                                                                 \
    VARIABLE(dimltype, Dimltype, 345, nullptr)                                                               \
    VARIABLE(dimltex1, Dimltex1, 346, nullptr)                                                               \
    VARIABLE(dimltex2, Dimltex2, 347, nullptr)

/// Line weights of dimension and extension lines.
#define ACDB_DIM_LINEWEIGHTS(VARIABLE)                                                                       \
    VARIABLE(dimlwd, Dimlwd, 371, -2)                                                                        \
    VARIABLE(dimlwe, Dimlwe, 372, -2)
