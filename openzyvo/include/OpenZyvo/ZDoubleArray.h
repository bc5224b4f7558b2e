#pragma once

#include <OpenZyvo/ZArray.h>

class ZDoubleArray : public ZArray<double> {
public:
    using ZArray::ZArray;
};
