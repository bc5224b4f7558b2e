#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>

class OZ_API ZFloatArray : public ZArray<float> {
public:
    using ZArray::ZArray;
};
