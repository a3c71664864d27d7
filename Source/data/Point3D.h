#pragma once

#include "data/I1D.h"

// COUNT coordinates in a base unit, all 0 at first.
template <unsigned int COUNT>
class Point : public I1D<double> {
public:
    Point() = default;

    unsigned int size() const override { return COUNT; }
    const double* data() const override { return value_; }
    double& operator[](unsigned int index) { return value_[index]; }  // index below COUNT
    const double& operator[](unsigned int index) const { return value_[index]; }

private:
    double value_[COUNT] = {};
};

// A place or a direction: x, y and z.
class Point3D : public Point<3> {
public:
    Point3D() = default;
    // In the base unit.
    Point3D(double x, double y, double z) {
        (*this)[0] = x;
        (*this)[1] = y;
        (*this)[2] = z;
    }
};

// A place and an attitude, or their rates: x, y and z, then the three angles about them.
class Point6D : public Point<6> {
public:
    Point6D() = default;
    Point6D(const Point3D& linear, const Point3D& angular) {
        for (unsigned int i = 0; i < 3; ++i) {
            (*this)[i] = linear[i];
            (*this)[i + 3] = angular[i];
        }
    }
};
