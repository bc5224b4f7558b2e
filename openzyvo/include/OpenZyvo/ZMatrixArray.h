#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZMatrix.h>

class ZMatrixArray : public ZArray<ZMatrix> {
public:
    using ZArray::ZArray;
};
