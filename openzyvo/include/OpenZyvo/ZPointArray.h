#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZPoint.h>

class ZPointArray : public ZArray<ZPoint> {
public:
    using ZArray::ZArray;
};
