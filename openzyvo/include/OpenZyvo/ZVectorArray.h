#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZVector.h>

class ZVectorArray : public ZArray<ZVector> {
public:
    using ZArray::ZArray;
};
