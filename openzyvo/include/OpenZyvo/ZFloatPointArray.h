#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZFloatPoint.h>

class OZ_API ZFloatPointArray : public ZArray<ZFloatPoint> {
public:
    using ZArray::ZArray;
};
