#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZFloatVector.h>

class ZFloatVectorArray : public ZArray<ZFloatVector> {
public:
    using ZArray::ZArray;
};
