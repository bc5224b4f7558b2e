#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZFloatVector.h>

class OZ_API ZFloatVectorArray : public ZArray<ZFloatVector> {
public:
    using ZArray::ZArray;
};
