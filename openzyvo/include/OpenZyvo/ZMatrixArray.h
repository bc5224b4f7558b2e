#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZMatrix.h>

class OZ_API ZMatrixArray : public ZArray<ZMatrix> {
public:
    using ZArray::ZArray;
};
