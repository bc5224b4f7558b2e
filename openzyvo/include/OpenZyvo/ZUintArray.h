#pragma once

#include <OpenZyvo/ZArray.h>

class ZUintArray : public ZArray<unsigned int> {
public:
    using ZArray::ZArray;
};
