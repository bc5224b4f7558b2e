#include <OpenZyvo/ZMatrix.h>
#include <cmath>
#include <utility>

const ZMatrix ZMatrix::identity;

ZMatrix::ZMatrix(const double m[4][4]) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] = m[r][c];
}

ZMatrix ZMatrix::operator*(const ZMatrix& right) const {
    ZMatrix out;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += matrix[r][k] * right.matrix[k][c];
            out.matrix[r][c] = sum;
        }
    return out;
}

ZMatrix ZMatrix::transpose() const {
    ZMatrix out;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out.matrix[r][c] = matrix[c][r];
    return out;
}

ZMatrix ZMatrix::inverse() const {
    // Gauss-Jordan elimination with partial pivoting; a singular matrix gives
    // the identity rather than infinities.
    double a[4][8];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            a[r][c] = matrix[r][c];
            a[r][c + 4] = r == c ? 1.0 : 0.0;
        }
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 4; ++r)
            if (std::abs(a[r][col]) > std::abs(a[pivot][col]))
                pivot = r;
        if (std::abs(a[pivot][col]) < 1e-300)
            return ZMatrix();
        if (pivot != col)
            for (int c = 0; c < 8; ++c)
                std::swap(a[pivot][c], a[col][c]);
        const double scale = 1.0 / a[col][col];
        for (int c = 0; c < 8; ++c)
            a[col][c] *= scale;
        for (int r = 0; r < 4; ++r) {
            if (r == col || a[r][col] == 0.0)
                continue;
            const double factor = a[r][col];
            for (int c = 0; c < 8; ++c)
                a[r][c] -= factor * a[col][c];
        }
    }
    ZMatrix out;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out.matrix[r][c] = a[r][c + 4];
    return out;
}

double ZMatrix::det4x4() const {
    const auto& m = matrix;
    const double s0 = m[0][0] * m[1][1] - m[1][0] * m[0][1];
    const double s1 = m[0][0] * m[1][2] - m[1][0] * m[0][2];
    const double s2 = m[0][0] * m[1][3] - m[1][0] * m[0][3];
    const double s3 = m[0][1] * m[1][2] - m[1][1] * m[0][2];
    const double s4 = m[0][1] * m[1][3] - m[1][1] * m[0][3];
    const double s5 = m[0][2] * m[1][3] - m[1][2] * m[0][3];
    const double c5 = m[2][2] * m[3][3] - m[3][2] * m[2][3];
    const double c4 = m[2][1] * m[3][3] - m[3][1] * m[2][3];
    const double c3 = m[2][1] * m[3][2] - m[3][1] * m[2][2];
    const double c2 = m[2][0] * m[3][3] - m[3][0] * m[2][3];
    const double c1 = m[2][0] * m[3][2] - m[3][0] * m[2][2];
    const double c0 = m[2][0] * m[3][1] - m[3][0] * m[2][1];
    return s0 * c5 - s1 * c4 + s2 * c3 + s3 * c2 - s4 * c1 + s5 * c0;
}

bool ZMatrix::isEquivalent(const ZMatrix& other, double tolerance) const {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (std::abs(matrix[r][c] - other.matrix[r][c]) > tolerance)
                return false;
    return true;
}
