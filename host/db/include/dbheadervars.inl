// The header variables that AcDbDatabase has a getter and a setter for: X(type, getter, setter, variable, least, most).
// A number outside the range is eInvalidInput.

#define ACDB_HEADER_REALS(X)                                                                                 \
    X(celtscale, setCeltscale, "$CELTSCALE", 1e-300, 1e300)                                                  \
    X(chamfera, setChamfera, "$CHAMFERA", 0, 1e300)                                                          \
    X(chamferb, setChamferb, "$CHAMFERB", 0, 1e300)                                                          \
    X(chamferc, setChamferc, "$CHAMFERC", 0, 1e300)                                                          \
    X(chamferd, setChamferd, "$CHAMFERD", -1e300, 1e300)                                                     \
    X(cmlscale, setCmlscale, "$CMLSCALE", -1e300, 1e300)                                                     \
    X(elevation, setElevation, "$ELEVATION", -1e300, 1e300)                                                  \
    X(filletrad, setFilletrad, "$FILLETRAD", 0, 1e300)                                                       \
    X(ltscale, setLtscale, "$LTSCALE", 1e-300, 1e300)                                                        \
    X(pdsize, setPdsize, "$PDSIZE", -1e300, 1e300)                                                           \
    X(pelevation, setPelevation, "$PELEVATION", -1e300, 1e300)                                               \
    X(plinewid, setPlinewid, "$PLINEWID", 0, 1e300)                                                          \
    X(psvpscale, setPsvpscale, "$PSVPSCALE", 0, 1e300)                                                       \
    X(sketchinc, setSketchinc, "$SKETCHINC", 1e-300, 1e300)                                                  \
    X(textsize, setTextsize, "$TEXTSIZE", 1e-300, 1e300)                                                     \
    X(thickness, setThickness, "$THICKNESS", -1e300, 1e300)                                                  \
    X(tracewid, setTracewid, "$TRACEWID", 0, 1e300)                                                          \
    X(userr1, setUserr1, "$USERR1", -1e300, 1e300)                                                           \
    X(userr2, setUserr2, "$USERR2", -1e300, 1e300)                                                           \
    X(userr3, setUserr3, "$USERR3", -1e300, 1e300)                                                           \
    X(userr4, setUserr4, "$USERR4", -1e300, 1e300)                                                           \
    X(userr5, setUserr5, "$USERR5", -1e300, 1e300)

#define ACDB_HEADER_INTEGERS(X)                                                                              \
    X(bool, angdir, setAngdir, "$ANGDIR", 0, 1)                                                              \
    X(std::int16_t, attmode, setAttmode, "$ATTMODE", 0, 2)                                                   \
    X(std::int16_t, aunits, setAunits, "$AUNITS", 0, 4)                                                      \
    X(std::int16_t, auprec, setAuprec, "$AUPREC", 0, 8)                                                      \
    X(AcDb::LineWeight, celweight, setCelweight, "$CELWEIGHT", -3, 211)                                      \
    X(std::int16_t, cmljust, setCmljust, "$CMLJUST", 0, 2)                                                   \
    X(std::uint8_t, dimAssoc, setDimAssoc, "$DIMASSOC", 0, 2)                                                \
    X(bool, dispSilh, setDispSilh, "$DISPSILH", 0, 1)                                                        \
    X(bool, fillmode, setFillmode, "$FILLMODE", 0, 1)                                                        \
    X(std::uint8_t, haloGap, setHaloGap, "$HALOGAP", 0, 100)                                                 \
    X(bool, hideText, setHideText, "$HIDETEXT", 0, 1)                                                        \
    X(AcDb::UnitsValue, insunits, setInsunits, "$INSUNITS", 0, 20)                                           \
    X(bool, limcheck, setLimcheck, "$LIMCHECK", 0, 1)                                                        \
    X(bool, lineWeightDisplay, setLineWeightDisplay, "$LWDISPLAY", 0, 1)                                     \
    X(std::int16_t, lunits, setLunits, "$LUNITS", 1, 5)                                                      \
    X(std::int16_t, luprec, setLuprec, "$LUPREC", 0, 8)                                                      \
    X(std::int16_t, maxactvp, setMaxactvp, "$MAXACTVP", 2, 64)                                               \
    X(AcDb::MeasurementValue, measurement, setMeasurement, "$MEASUREMENT", 0, 1)                             \
    X(bool, mirrtext, setMirrtext, "$MIRRTEXT", 0, 1)                                                        \
    X(bool, orthomode, setOrthomode, "$ORTHOMODE", 0, 1)                                                     \
    X(std::int16_t, pdmode, setPdmode, "$PDMODE", 0, 100)                                                    \
    X(bool, plimcheck, setPlimcheck, "$PLIMCHECK", 0, 1)                                                     \
    X(bool, plinegen, setPlinegen, "$PLINEGEN", 0, 1)                                                        \
    X(bool, psltscale, setPsltscale, "$PSLTSCALE", 0, 1)                                                     \
    X(bool, qtextmode, setQtextmode, "$QTEXTMODE", 0, 1)                                                     \
    X(bool, regenmode, setRegenmode, "$REGENMODE", 0, 1)                                                     \
    X(std::int16_t, shadedge, setShadedge, "$SHADEDGE", 0, 3)                                                \
    X(std::int16_t, shadedif, setShadedif, "$SHADEDIF", 0, 100)                                              \
    X(std::uint8_t, sortEnts, setSortEnts, "$SORTENTS", 0, 127)                                              \
    X(bool, splframe, setSplframe, "$SPLFRAME", 0, 1)                                                        \
    X(std::int16_t, splinesegs, setSplinesegs, "$SPLINESEGS", -32768, 32767)                                 \
    X(std::int16_t, splinetype, setSplinetype, "$SPLINETYPE", 5, 6)                                          \
    X(std::int16_t, surftab1, setSurftab1, "$SURFTAB1", 2, 32766)                                            \
    X(std::int16_t, surftab2, setSurftab2, "$SURFTAB2", 2, 32766)                                            \
    X(std::int16_t, surftype, setSurftype, "$SURFTYPE", 5, 8)                                                \
    X(std::int16_t, surfu, setSurfu, "$SURFU", 0, 200)                                                       \
    X(std::int16_t, surfv, setSurfv, "$SURFV", 0, 200)                                                       \
    X(bool, tilemode, setTilemode, "$TILEMODE", 0, 1)                                                        \
    X(std::int16_t, treedepth, setTreedepth, "$TREEDEPTH", -32768, 32767)                                    \
    X(std::int16_t, unitmode, setUnitmode, "$UNITMODE", 0, 1)                                                \
    X(std::int16_t, useri1, setUseri1, "$USERI1", -32768, 32767)                                             \
    X(std::int16_t, useri2, setUseri2, "$USERI2", -32768, 32767)                                             \
    X(std::int16_t, useri3, setUseri3, "$USERI3", -32768, 32767)                                             \
    X(std::int16_t, useri4, setUseri4, "$USERI4", -32768, 32767)                                             \
    X(std::int16_t, useri5, setUseri5, "$USERI5", -32768, 32767)                                             \
    X(bool, usrtimer, setUsrtimer, "$USRTIMER", 0, 1)                                                        \
    X(bool, visretain, setVisretain, "$VISRETAIN", 0, 1)                                                     \
    X(bool, worldview, setWorldview, "$WORLDVIEW", 0, 1)

#define ACDB_HEADER_POINTS(X)                                                                                \
    X(AcGePoint3d, extmax, setExtmax, "$EXTMAX")                                                             \
    X(AcGePoint3d, extmin, setExtmin, "$EXTMIN")                                                             \
    X(AcGePoint3d, insbase, setInsbase, "$INSBASE")                                                          \
    X(AcGePoint2d, limmax, setLimmax, "$LIMMAX")                                                             \
    X(AcGePoint2d, limmin, setLimmin, "$LIMMIN")                                                             \
    X(AcGePoint3d, pextmax, setPextmax, "$PEXTMAX")                                                          \
    X(AcGePoint3d, pextmin, setPextmin, "$PEXTMIN")                                                          \
    X(AcGePoint3d, pinsbase, setPinsbase, "$PINSBASE")                                                       \
    X(AcGePoint2d, plimmax, setPlimmax, "$PLIMMAX")                                                          \
    X(AcGePoint2d, plimmin, setPlimmin, "$PLIMMIN")

// The origin and the axes of the current coordinate systems, which are set together.
#define ACDB_HEADER_FRAMES(X)                                                                                \
    X(AcGePoint3d, ucsorg, "$UCSORG")                                                                        \
    X(AcGeVector3d, ucsxdir, "$UCSXDIR")                                                                     \
    X(AcGeVector3d, ucsydir, "$UCSYDIR")                                                                     \
    X(AcGePoint3d, pucsorg, "$PUCSORG")                                                                      \
    X(AcGeVector3d, pucsxdir, "$PUCSXDIR")                                                                   \
    X(AcGeVector3d, pucsydir, "$PUCSYDIR")
