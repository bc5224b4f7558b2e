#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZFloatPoint.h>

class ZFloatPointArray : public ZArray<ZFloatPoint> {
public:
    using ZArray::ZArray;
};
