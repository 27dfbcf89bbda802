#pragma once

#include <algorithm>
#include <cmath>

namespace standin {

constexpr double Pi = 3.14159265358979323846;

/// A value of sin, pow and their like, to six decimals. Their last bits differ between systems, and
/// a fight amplifies the smallest difference.
inline double rounded(double value) { return std::round(value * 1e6) * 1e-6; }

/// A position on the map or a direction: x to the north, y up, z to the east, in metres.
struct Vector {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline Vector operator+(const Vector& a, const Vector& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vector operator-(const Vector& a, const Vector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vector operator*(const Vector& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
inline double dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double length(const Vector& a) { return std::sqrt(dot(a, a)); }
inline double distance(const Vector& a, const Vector& b) { return length(a - b); }
/// The horizontal distance.
inline double groundDistance(const Vector& a, const Vector& b) {
    return length({a.x - b.x, 0, a.z - b.z});
}
/// Points to the north for a vector without a length.
inline Vector normalized(const Vector& a) {
    const double size = length(a);
    return size < 1e-9 ? Vector{1, 0, 0} : a * (1 / size);
}
/// The angle between two directions of length 1, in radians from 0 to Pi.
inline double angleBetween(const Vector& a, const Vector& b) {
    return rounded(std::acos(std::clamp(dot(a, b), -1.0, 1.0)));
}
/// heading in degrees, 0 to the north, 90 to the east.
inline Vector levelDirection(double heading) {
    return {rounded(std::cos(heading * Pi / 180)), 0, rounded(std::sin(heading * Pi / 180))};
}

} // namespace standin
