#include "data/MatrixData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnMatrixData.h>

using oz::MatrixData;

ZFnMatrixData::ZFnMatrixData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnMatrixData::create(const ZMatrix& matrix, ZStatus* status) {
    m_object = oz::createValueData<MatrixData>(matrix, status);
    return m_object;
}

ZMatrix ZFnMatrixData::matrix(ZStatus* status) const {
    return oz::copyOf<MatrixData>(m_object, status);
}

ZStatus ZFnMatrixData::set(const ZMatrix& matrix) {
    return oz::setValueOf<MatrixData>(m_object, matrix);
}
