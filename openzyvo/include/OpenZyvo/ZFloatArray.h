#pragma once

#include <OpenZyvo/ZArray.h>

class ZFloatArray : public ZArray<float> {
public:
    using ZArray::ZArray;
};
