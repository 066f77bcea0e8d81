#pragma once

/// Keeps what is drawn in the range of numbers that a device takes.

#include "LineTypeDash.h"

namespace plot
{
struct DeviceBox {
    double left = 0, bottom = 0, right = 0, top = 0;
};

/// Whether a point lies in the box, edges included; false for one that is not a number.
inline bool isInside(const AcGePoint2d& p, const DeviceBox& box)
{
    return p.x >= box.left && p.x <= box.right && p.y >= box.bottom && p.y <= box.top;
}

/// The parts of a line inside the box; a line that is inside as a whole comes back as it is.
std::vector<Points> clipLine(const Points& line, const DeviceBox& box);

/// The part of a polygon inside the box. Outside parts run along the box's edges, which leaves every point
/// inside filled or free as it was, by either fill rule (Sutherland and Hodgman, 1974).
Points clipPolygon(const Points& polygon, const DeviceBox& box);
} // namespace plot
