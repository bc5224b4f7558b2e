#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>

class OZ_API ZInt64Array : public ZArray<long long> {
public:
    using ZArray::ZArray;
};
