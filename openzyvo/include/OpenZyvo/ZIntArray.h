#pragma once

#include <OpenZyvo/ZArray.h>

class ZIntArray : public ZArray<int> {
public:
    using ZArray::ZArray;
};
