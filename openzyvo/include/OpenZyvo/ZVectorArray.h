#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZVector.h>

class OZ_API ZVectorArray : public ZArray<ZVector> {
public:
    using ZArray::ZArray;
};
