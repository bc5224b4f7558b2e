#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZTime.h>

class ZTimeArray : public ZArray<ZTime> {
public:
    using ZArray::ZArray;
};
