#pragma once

/// The types of the list interface: points, names, result buffers, and their codes.

#include <windows.h>

#include <cstdint>

using ACHAR = wchar_t;
using ads_real = double;
using ads_point = ads_real[3];
using ads_matrix = ads_real[4][4];
/// An entity or a selection set. An entity's first element is its id's number.
using ads_name = std::int64_t[2];

constexpr int X = 0;
constexpr int Y = 1;
constexpr int Z = 2;
constexpr int T = 3;

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring; ///< owned by its node
    std::int64_t rlname[2];
    std::int32_t rlong;
    std::int64_t mnInt64;
    ads_binary rbinary; ///< owned by its node
    unsigned char ihandle[8];
};

/// One node of a list. restype is an RT... code, or a DXF group code in entity lists; it says which member of the
/// value counts (see acdbGroupCodeToType).
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

// Value types.
constexpr short RTNONE = 5000;
constexpr short RTREAL = 5001;
constexpr short RTPOINT = 5002;
constexpr short RTSHORT = 5003;
constexpr short RTANG = 5004;
constexpr short RTSTR = 5005;
constexpr short RTENAME = 5006;
constexpr short RTPICKS = 5007;
constexpr short RTORINT = 5008;
constexpr short RT3DPOINT = 5009;
constexpr short RTLONG = 5010;
constexpr short RTVOID = 5014;
constexpr short RTLB = 5016;
constexpr short RTLE = 5017;
constexpr short RTDOTE = 5018;
constexpr short RTNIL = 5019;
constexpr short RTDXF0 = 5020;
constexpr short RTT = 5021;
constexpr short RTRESBUF = 5023;
constexpr short RTMODELESS = 5027;
constexpr short RTINT64 = 5031;

// Results.
constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTREJ = -5003;
constexpr int RTFAIL = -5004;
constexpr int RTKWORD = -5005;
constexpr int RTINPUTTRUNCATED = -5008;

inline void ads_name_set(const ads_name from, ads_name to)
{
    to[0] = from[0];
    to[1] = from[1];
}
inline void ads_name_clear(ads_name name) { name[0] = name[1] = 0; }
inline bool ads_name_nil(const ads_name name) { return name[0] == 0 && name[1] == 0; }
inline bool ads_name_equal(const ads_name a, const ads_name b) { return a[0] == b[0] && a[1] == b[1]; }
inline void ads_point_set(const ads_point from, ads_point to)
{
    for (int i = 0; i < 3; ++i) to[i] = from[i];
}
