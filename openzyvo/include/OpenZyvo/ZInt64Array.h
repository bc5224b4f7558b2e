#pragma once

#include <OpenZyvo/ZArray.h>

class ZInt64Array : public ZArray<long long> {
public:
    using ZArray::ZArray;
};
