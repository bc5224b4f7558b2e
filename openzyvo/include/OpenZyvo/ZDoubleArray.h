#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>

class OZ_API ZDoubleArray : public ZArray<double> {
public:
    using ZArray::ZArray;
};
