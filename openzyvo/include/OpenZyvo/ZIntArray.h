#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>

class OZ_API ZIntArray : public ZArray<int> {
public:
    using ZArray::ZArray;
};
