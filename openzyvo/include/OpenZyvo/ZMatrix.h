#pragma once

#include <OpenZyvo/ZApiExport.h>

// A 4x4 double matrix for row vectors: p' = p * M, translation in row 3.
class OZ_API ZMatrix {
public:
    double matrix[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    ZMatrix() = default;
    explicit ZMatrix(const double m[4][4]);

    double operator()(unsigned int row, unsigned int col) const { return matrix[row][col]; }
    double& operator()(unsigned int row, unsigned int col) { return matrix[row][col]; }
    const double* operator[](unsigned int row) const { return matrix[row]; }

    ZMatrix operator*(const ZMatrix& right) const;
    ZMatrix& operator*=(const ZMatrix& right) { return *this = *this * right; }
    ZMatrix transpose() const;
    ZMatrix inverse() const;
    double det4x4() const;
    ZMatrix& setToIdentity() { return *this = ZMatrix(); }
    bool isEquivalent(const ZMatrix& other, double tolerance = 1e-10) const;

    friend bool operator==(const ZMatrix& a, const ZMatrix& b) { return a.isEquivalent(b, 0.0); }

    static const ZMatrix identity;
};
