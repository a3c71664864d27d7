#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

// Numbers, tables, angles and the sea. Where a type knows NaN, a NaN that goes in comes out.
namespace AuvMath {

const double PI = 3.14159265358979323846;

// False for every integer.
template <typename T>
bool IsNaN(T x) {
    return x != x;
}

// The same bit by bit: NaN is itself, and 0 is not -0.
inline bool AreSameBits(double a, double b) {
    uint64_t bitsOfA, bitsOfB;
    memcpy(&bitsOfA, &a, sizeof a);
    memcpy(&bitsOfB, &b, sizeof b);
    return bitsOfA == bitsOfB;
}

// The value with its bytes in reverse order.
template <typename T>
T FlipEndian(T value) {
    static_assert(std::is_arithmetic<T>::value, "only numbers have an endianness");
    unsigned char bytes[sizeof(T)];
    memcpy(bytes, &value, sizeof(T));
    std::reverse(bytes, bytes + sizeof(T));
    memcpy(&value, bytes, sizeof(T));
    return value;
}

// x as an integer: truncated toward zero, the nearest one that fits when it is out of range, 0 for NaN.
template <typename Integer>
Integer Truncate(double x) {
    typedef std::numeric_limits<Integer> Limits;
    if (IsNaN(x)) return 0;
    if (x <= static_cast<double>(Limits::min())) return Limits::min();
    if (x >= static_cast<double>(Limits::max())) return Limits::max();
    return static_cast<Integer>(x);
}

// x as any type of number: integers by Truncate, floating ones rounded.
template <typename Number>
Number Narrow(double x) {
    if constexpr (std::is_integral<Number>::value) {
        return Truncate<Number>(x);
    } else {
        return static_cast<Number>(x);
    }
}

// x clamped into the range between a and b, which may come in either order.
template <typename T>
T Limit(T x, T a, T b) {
    if (IsNaN(x)) return x;
    if (IsNaN(a)) return a;
    if (IsNaN(b)) return b;
    return std::min(std::max(x, std::min(a, b)), std::max(a, b));
}

// True when x lies between a and b, both included, in either order; false when any of the three is NaN.
template <typename T>
bool InLimit(T x, T a, T b) {
    return (a <= x && x <= b) || (b <= x && x <= a);
}

// x, or 0 for NaN.
template <typename T>
T NanZero(T x) {
    return IsNaN(x) ? T(0) : x;
}

// -1, 0 or 1, both zeros being 0; NaN for NaN.
template <typename T>
T Sign(T x) {
    if (IsNaN(x)) return x;
    return static_cast<T>((x > 0) - (x < 0));
}

// The index i in lo .. hi of the ascending array with a[i] <= x < a[i + 1], or hi for x equal to a[hi]; the last one of
// equal elements. -1 for x outside a[lo] .. a[hi] and for NaN.
template <typename T>
int FindLtEqIndex(const T* a, T x, int lo, int hi) {
    if (lo > hi || !(a[lo] <= x && x <= a[hi])) return -1;
    return static_cast<int>(std::upper_bound(a + lo, a + hi + 1, x) - a) - 1;
}

// On the line through (x0, y0) and (x1, y1), also outside of them; NaN when x0 equals x1.
template <typename T>
T Interpolate1D(T x, T y0, T y1, T x0, T x1) {
    if (x0 == x1) return std::numeric_limits<T>::quiet_NaN();
    return y0 + (y1 - y0) * (x - x0) / (x1 - x0);
}

// Between the corners of a cell, at a fraction of 0 to 1 along each axis, linear beyond too; the first index goes along
// x.
template <typename T>
T Interpolate2D(const T (&corners)[2][2], T x, T y) {
    return Interpolate1D(x, Interpolate1D(y, corners[0][0], corners[0][1], T(0), T(1)),
                         Interpolate1D(y, corners[1][0], corners[1][1], T(0), T(1)), T(0), T(1));
}

// Likewise, corners[i][j][k] standing at x = i, y = j, z = k.
template <typename T>
T Interpolate3D(const T (&corners)[2][2][2], T x, T y, T z) {
    return Interpolate1D(x, Interpolate2D(corners[0], y, z), Interpolate2D(corners[1], y, z), T(0), T(1));
}

// Likewise, corners[i][j][k][l] standing at x = i, y = j, z = k, w = l.
template <typename T>
T Interpolate4D(const T (&corners)[2][2][2][2], T x, T y, T z, T w) {
    return Interpolate1D(x, Interpolate3D(corners[0], y, z, w), Interpolate3D(corners[1], y, z, w), T(0), T(1));
}

// The multiple of step nearest to x, halves away from zero; NaN for a step of 0.
template <typename T>
T Round(T x, T step) {
    if (step == 0) return std::numeric_limits<T>::quiet_NaN();
    return std::round(x / step) * step;
}

// The angle (radians) wrapped into [-pi, pi).
template <typename T>
T ModPi(T x) {
    const T turn = T(2 * PI);
    return x - turn * std::floor(x / turn + T(0.5));
}

// x wrapped into [lo, hi), whatever they measure; NaN for an infinite x and for hi equal to lo.
template <typename T>
T NormalizeAngle(T x, T lo, T hi) {
    const T span = hi - lo;
    const T offset = x - lo;
    const T wrapped = lo + offset - std::floor(offset / span) * span;
    return wrapped >= hi ? lo : wrapped;  // what lies barely below lo would round up to hi
}

// True when the point lies in the triangle or on its edge, whichever way round the corners are given; false for NaN.
// The corners must not lie on one line.
bool TriangleContains(float px, float py, float x1, float y1, float x2, float y2, float x3, float y3);
// True when the point lies in the polygon of n corners (even-odd rule); of the edges, the lower and left ones belong to
// it. The last corner is joined to the first. False for NaN and without corners.
bool AreaContains(float px, float py, int n, const float* x, const float* y);

// Angles in radians; the vector (Point3D, or any other thing of three numbers in [0] to [2]) is x forward along
// azimuth 0, y along azimuth 90 degrees, z along elevation 90 degrees.
template <typename Vector>
void AzimuthAndElevationToUnitVector(float azimuth, float elevation, Vector& vector) {
    vector[0] = std::cos(elevation) * std::cos(azimuth);
    vector[1] = std::cos(elevation) * std::sin(azimuth);
    vector[2] = std::sin(elevation);
}

// The way back, of a vector of any length: azimuth -pi to pi, elevation -pi/2 to pi/2; both 0 for the zero vector.
template <typename Vector>
void UnitVectorToAzimuthAndElevation(const Vector& vector, float& azimuth, float& elevation) {
    azimuth = static_cast<float>(std::atan2(vector[1], vector[0]));
    elevation = static_cast<float>(std::atan2(vector[2], std::hypot(vector[0], vector[1])));
}

// The sea. Salinity on the Practical Salinity Scale, temperature in Celsius, pressure above the atmosphere in decibars
// where nothing else is said. Of the temperatures, SoundSpeed and PracticalSalinity take ITS-90 and convert; Density
// and BulkModulus take the IPTS-68 temperature of their formula. Nothing is checked against the range that a formula
// was fitted to; a negative salinity gives NaN where its root is taken.

// Metres of standard ocean below the surface, from pascals and radians.
// N. P. Fofonoff and R. C. Millard, UNESCO technical papers in marine science 44 (1983).
double OceanDepth(double pressure, double latitude);
// Pascals in the common oceans at mid latitudes, from metres and radians. C. C. Leroy and F. Parthiot, J. Acoust. Soc.
// Am. 103 (1998).
double OceanPressure(double depth, double latitude);
// Metres per second, for salinities of 0 to 40, 0 to 40 Celsius and 0 to 10000 decibars. C.-T. Chen and F. J. Millero
// (1977), in UNESCO technical papers in marine science 44 (1983).
double SoundSpeed(double salinity, double temperature, double pressure);
// From the conductivity relative to that of standard seawater at 15 Celsius and no pressure; NaN for a negative one.
// For salinities up to 42, -2 to 35 Celsius and 0 to 10000 decibars. Practical Salinity Scale 1978, UNESCO technical
// papers in marine science 44 (1983); below 2 as extended by K. D. Hill, T. M. Dauphinee and D. J. Woods, IEEE J.
// Oceanic Eng. 11 (1986), scaled to be continuous there.
double PracticalSalinity(double conductivityRatio, double temperature, double pressure);
// What the extension of Hill et al. is multiplied by to meet the 1978 scale at salinity 2, at an ITS-90 temperature in
// Celsius; near 1.
double HillRatioAtSP2(double temperature);
// The secant bulk modulus in bars, for salinities of 0 to 42, -2 to 40 Celsius and 0 to 10000 decibars. International
// Equation of State of Seawater 1980 (EOS-80), UNESCO technical papers in marine science 44 (1983).
double BulkModulus(double salinity, double temperature, double pressure);
// Kilograms per cubic metre, likewise.
double Density(double salinity, double temperature, double pressure);
// Oxygen in equilibrium with moist air at one atmosphere, micromoles per kilogram of seawater, from freezing to 40
// Celsius and for salinities of 0 to 42. H. E. Garcia and L. I. Gordon, Limnol. Oceanogr. 37 (1992), with the constants
// fitted to Benson and Krause.
double Oxsol(double salinity, double temperature);

}  // namespace AuvMath
