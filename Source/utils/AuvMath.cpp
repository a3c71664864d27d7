#include "utils/AuvMath.h"

#include <cstddef>

namespace {

const double PASCALS_PER_DECIBAR = 1e4;
const double PASCALS_PER_MEGAPASCAL = 1e6;
const double DECIBARS_PER_BAR = 10;
const double IPTS68_PER_ITS90 = 1.00024;

// c[0] + c[1] x + c[2] x^2 ...
template <size_t N>
double Polynomial(const double (&c)[N], double x) {
    double sum = c[N - 1];
    for (size_t i = N - 1; i-- > 0;) sum = sum * x + c[i];
    return sum;
}

double Square(double x) {
    return x * x;
}

// Twice the signed area of the triangle (x1, y1), (x2, y2), (px, py).
float TurnOf(float px, float py, float x1, float y1, float x2, float y2) {
    return (x2 - x1) * (py - y1) - (y2 - y1) * (px - x1);
}

// The three terms of the 1978 scale that low salinities need as well.
const double SALINITY_A[] = {0.0080, -0.1692, 25.3851, 14.0941, -7.0261, 2.7081};
const double SALINITY_B[] = {0.0005, -0.0056, -0.0066, -0.0375, 0.0636, -0.0144};
const double HILL_LIMIT = 2;  // the salinity below which the extension is used

double TemperatureTerm(double t68) {
    return (t68 - 15) / (1 + 0.0162 * (t68 - 15));
}

// Of the root of the conductivity ratio that is left when temperature and pressure are accounted for.
double SalinityOf(double rootRatio, double t68) {
    return Polynomial(SALINITY_A, rootRatio) + TemperatureTerm(t68) * Polynomial(SALINITY_B, rootRatio);
}

double HillSalinityOf(double rootRatio, double t68, double salinity) {
    const double x = 400 * Square(rootRatio);
    const double rootY = 10 * rootRatio;
    const double a[] = {1, 1.5, 1};
    const double b[] = {1, 1, 1, 1};
    return salinity - SALINITY_A[0] / Polynomial(a, x) - SALINITY_B[0] * TemperatureTerm(t68) / Polynomial(b, rootY);
}

// The root ratio at which the 1978 scale reads salinity 2, by Newton's method with a secant slope.
double RootRatioAtHillLimit(double t68) {
    const double step = 1e-6;
    double root = 0.26;
    for (int i = 0; i < 8; ++i) {
        const double salinity = SalinityOf(root, t68);
        const double slope = (SalinityOf(root + step, t68) - salinity) / step;
        root -= (salinity - HILL_LIMIT) / slope;
    }
    return root;
}

}  // namespace

bool AuvMath::TriangleContains(float px, float py, float x1, float y1, float x2, float y2, float x3, float y3) {
    const float a = TurnOf(px, py, x1, y1, x2, y2);
    const float b = TurnOf(px, py, x2, y2, x3, y3);
    const float c = TurnOf(px, py, x3, y3, x1, y1);
    return (a >= 0 && b >= 0 && c >= 0) || (a <= 0 && b <= 0 && c <= 0);
}

bool AuvMath::AreaContains(float px, float py, int n, const float* x, const float* y) {
    bool inside = false;
    for (int i = 0, previous = n - 1; i < n; previous = i++) {
        if ((y[i] > py) == (y[previous] > py)) continue;
        if (px < Interpolate1D(py, x[i], x[previous], y[i], y[previous])) inside = !inside;
    }
    return inside;
}

double AuvMath::OceanDepth(double pressure, double latitude) {
    const double p = pressure / PASCALS_PER_DECIBAR;
    const double sin2 = Square(std::sin(latitude));
    const double gravity = 9.780318 * (1 + (5.2788e-3 + 2.36e-5 * sin2) * sin2) + 1.092e-6 * p;
    const double column[] = {0, 9.72659, -2.2512e-5, 2.279e-10, -1.82e-15};
    return Polynomial(column, p) / gravity;
}

double AuvMath::OceanPressure(double depth, double latitude) {
    const double at45Degrees[] = {0, 1.00818e-2, 2.465e-8, -1.25e-13, 2.8e-19};
    const double gravity = 9.780318 * (1 + 5.2788e-3 * Square(std::sin(latitude)));
    const double toLatitude = (gravity - 2e-5 * depth) / (9.80612 - 2e-5 * depth);
    const double correction = 6.2e-6 * depth + depth / (depth + 100) / 100;
    return (Polynomial(at45Degrees, depth) * toLatitude - correction) * PASCALS_PER_MEGAPASCAL;
}

double AuvMath::SoundSpeed(double salinity, double temperature, double pressure) {
    const double t = temperature * IPTS68_PER_ITS90;
    const double c0[] = {1402.388, 5.03711, -5.80852e-2, 3.3420e-4, -1.47800e-6, 3.1464e-9};
    const double c1[] = {0.153563, 6.8982e-4, -8.1788e-6, 1.3621e-7, -6.1185e-10};
    const double c2[] = {3.1260e-5, -1.7107e-6, 2.5974e-8, -2.5335e-10, 1.0405e-12};
    const double c3[] = {-9.7729e-9, 3.8504e-10, -2.3643e-12};
    const double a0[] = {1.389, -1.262e-2, 7.164e-5, 2.006e-6, -3.21e-8};
    const double a1[] = {9.4742e-5, -1.2580e-5, -6.4885e-8, 1.0507e-8, -2.0122e-10};
    const double a2[] = {-3.9064e-7, 9.1041e-9, -1.6002e-10, 7.988e-12};
    const double a3[] = {1.100e-10, 6.649e-12, -3.389e-13};
    const double b0[] = {-1.922e-2, -4.42e-5};
    const double b1[] = {7.3637e-5, 1.7945e-7};
    const double ofWater[] = {Polynomial(c0, t), Polynomial(c1, t), Polynomial(c2, t), Polynomial(c3, t)};
    const double ofSalt[] = {Polynomial(a0, t), Polynomial(a1, t), Polynomial(a2, t), Polynomial(a3, t)};
    const double ofRootSalt[] = {Polynomial(b0, t), Polynomial(b1, t)};
    const double ofSaltSquared[] = {1.727e-3, -7.9836e-6};
    const double p = pressure / DECIBARS_PER_BAR;
    return Polynomial(ofWater, p) + (Polynomial(ofSalt, p) + Polynomial(ofRootSalt, p) * std::sqrt(salinity) +
                                     Polynomial(ofSaltSquared, p) * salinity) *
                                        salinity;
}

double AuvMath::PracticalSalinity(double conductivityRatio, double temperature, double pressure) {
    const double t = temperature * IPTS68_PER_ITS90;
    const double ofTemperature[] = {0.6766097, 2.00564e-2, 1.104259e-4, -6.9698e-7, 1.0031e-9};
    const double c[] = {0, 2.070e-5, -6.370e-10, 3.989e-15};
    const double b[] = {1, 3.426e-2, 4.464e-4};
    const double a[] = {4.215e-1, -3.107e-3};
    const double ofPressure = 1 + Polynomial(c, pressure) / (Polynomial(b, t) + Polynomial(a, t) * conductivityRatio);
    const double rootRatio = std::sqrt(conductivityRatio / (Polynomial(ofTemperature, t) * ofPressure));
    const double salinity = SalinityOf(rootRatio, t);
    return salinity < HILL_LIMIT ? HillRatioAtSP2(temperature) * HillSalinityOf(rootRatio, t, salinity) : salinity;
}

double AuvMath::HillRatioAtSP2(double temperature) {
    const double t = temperature * IPTS68_PER_ITS90;
    return HILL_LIMIT / HillSalinityOf(RootRatioAtHillLimit(t), t, HILL_LIMIT);
}

double AuvMath::BulkModulus(double salinity, double temperature, double pressure) {
    const double water[] = {19652.21, 148.4206, -2.327105, 1.360477e-2, -5.155288e-5};
    const double salt[] = {54.6746, -0.603459, 1.09987e-2, -6.1670e-5};
    const double rootSalt[] = {7.944e-2, 1.6483e-2, -5.3009e-4};
    const double water1[] = {3.239908, 1.43713e-3, 1.16092e-4, -5.77905e-7};
    const double salt1[] = {2.2838e-3, -1.0981e-5, -1.6078e-6};
    const double rootSalt1 = 1.91075e-4;
    const double water2[] = {8.50935e-5, -6.12293e-6, 5.2787e-8};
    const double salt2[] = {-9.9348e-7, 2.0816e-8, 9.1697e-10};
    const double t = temperature;
    const double root = std::sqrt(salinity);
    const double ofPressure[] = {
        Polynomial(water, t) + (Polynomial(salt, t) + Polynomial(rootSalt, t) * root) * salinity,
        Polynomial(water1, t) + (Polynomial(salt1, t) + rootSalt1 * root) * salinity,
        Polynomial(water2, t) + Polynomial(salt2, t) * salinity,
    };
    return Polynomial(ofPressure, pressure / DECIBARS_PER_BAR);
}

double AuvMath::Density(double salinity, double temperature, double pressure) {
    const double water[] = {999.842594, 6.793952e-2, -9.095290e-3, 1.001685e-4, -1.120083e-6, 6.536332e-9};
    const double salt[] = {8.24493e-1, -4.0899e-3, 7.6438e-5, -8.2467e-7, 5.3875e-9};
    const double rootSalt[] = {-5.72466e-3, 1.0227e-4, -1.6546e-6};
    const double saltSquared = 4.8314e-4;
    const double t = temperature;
    const double atOneAtmosphere =
        Polynomial(water, t) +
        (Polynomial(salt, t) + Polynomial(rootSalt, t) * std::sqrt(salinity) + saltSquared * salinity) * salinity;
    return atOneAtmosphere / (1 - pressure / DECIBARS_PER_BAR / BulkModulus(salinity, temperature, pressure));
}

double AuvMath::Oxsol(double salinity, double temperature) {
    const double a[] = {5.80871, 3.20291, 4.17887, 5.10006, -9.86643e-2, 3.80369};
    const double b[] = {-7.01577e-3, -7.70028e-3, -1.13864e-2, -9.51519e-3};
    const double c = -2.75915e-7;
    const double scaled = std::log((298.15 - temperature) / (273.15 + temperature));
    return std::exp(Polynomial(a, scaled) + salinity * (Polynomial(b, scaled) + c * salinity));
}
